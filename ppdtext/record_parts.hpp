// The arrays of a PPD record in the libcups layout, as ranges; an absent array is an empty one.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <cstddef>
#include <span>

namespace kelm::ppdtext {

template <class Element>
std::span<Element> counted(Element* elements, int count) {
  if (elements == nullptr || count <= 0) return {};
  return {elements, static_cast<std::size_t>(count)};
}

inline std::span<ppd_group_t> groupsOf(const ppd_file_t& ppd) {
  return counted(ppd.groups, ppd.num_groups);
}
inline std::span<ppd_option_t> optionsOf(const ppd_group_t& group) {
  return counted(group.options, group.num_options);
}
inline std::span<ppd_choice_t> choicesOf(const ppd_option_t& option) {
  return counted(option.choices, option.num_choices);
}
inline std::span<ppd_attr_t*> attributesOf(const ppd_file_t& ppd) {
  return counted(ppd.attrs, ppd.num_attrs);
}

}  // namespace kelm::ppdtext
