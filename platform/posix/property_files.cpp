// Property files through libplist.
// SPDX-License-Identifier: Apache-2.0
#include "platform/property_files.hpp"

#include <plist/plist.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <memory>

#include "platform/platform.hpp"

namespace kelm::platform {
namespace {

struct FreeList {
  void operator()(void* list) const { plist_free(list); }
};
using List = std::unique_ptr<void, FreeList>;

// Property files with settings have a few kilobytes; a larger file is something else.
constexpr std::size_t kMaxFileBytes = std::size_t{1} << 24;

List listAt(std::string_view absolutePath) {
  std::ifstream file(platform().fileRoot->locate(absolutePath), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  if (bytes.empty() || bytes.size() > kMaxFileBytes) return nullptr;
  plist_t list = nullptr;
  const auto length = static_cast<std::uint32_t>(bytes.size());
  // plist_from_memory() would see it too, but its parameters differ between libplist 2.2 and 2.6.
  const bool isBinary = plist_is_binary(bytes.data(), length) != 0;
  (isBinary ? plist_from_bin : plist_from_xml)(bytes.data(), length, &list);
  return List(list);
}

// The value of `key`, owned by `list`; null when there is none.
plist_t valueOf(const List& list, const char* key) {
  if (list == nullptr || plist_get_node_type(list.get()) != PLIST_DICT) return nullptr;
  return plist_dict_get_item(list.get(), key);
}

std::optional<std::string> textOf(plist_t value) {
  if (value == nullptr || plist_get_node_type(value) != PLIST_STRING) return std::nullopt;
  // plist_get_string_val() ends the program for a text with a zero byte.
  const char* text = plist_get_string_ptr(value, nullptr);
  return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

}  // namespace

std::optional<std::string> propertyText(std::string_view absolutePath, const char* key) {
  const List list = listAt(absolutePath);
  return textOf(valueOf(list, key));
}

std::vector<std::string> propertyTexts(std::string_view absolutePath, const char* key) {
  const List list = listAt(absolutePath);
  plist_t array = valueOf(list, key);
  std::vector<std::string> texts;
  if (array == nullptr || plist_get_node_type(array) != PLIST_ARRAY) return texts;
  for (std::uint32_t i = 0; i < plist_array_get_size(array); ++i) {
    if (auto text = textOf(plist_array_get_item(array, i))) texts.push_back(std::move(*text));
  }
  return texts;
}

}  // namespace kelm::platform
