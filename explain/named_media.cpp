// What libcups understands by the words of "media" and the members of "media-col".
//
// libcups leaves the option unchanged if it does not know the name. So a name is known if it leads
// to the same choice from two different starting choices.
// SPDX-License-Identifier: Apache-2.0
#include "explain/named_media.hpp"

#include <cstdio>
#include <string_view>

#include "job/ppd_calls.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::explain {

std::optional<PageSize> markedPage(ppd_file_t* ppd, const char* name, const std::string& value) {
  cups_option_t option{const_cast<char*>(name), const_cast<char*>(value.c_str())};
  job::r_cupsMarkOptions(ppd, 1, &option);
  const ppd_size_t* size = job::r_ppdPageSize(ppd, nullptr);
  if (size == nullptr) return std::nullopt;
  return PageSize{size->width, size->length};
}

bool namesAPaper(ppd_file_t* ppd, const std::string& word) {
  if (ppd->num_sizes < 2) return true;
  const auto after = [&](const ppd_size_t& before) {
    markedPage(ppd, "PageSize", before.name);
    return markedPage(ppd, "media", word);
  };
  const auto one = after(ppd->sizes[0]);
  const auto other = after(ppd->sizes[1]);
  return one && other && one->width == other->width && one->length == other->length;
}

std::string choiceOfMedium(ppd_file_t* ppd, const char* keyword, const std::string& name) {
  const ppd_option_t* option = job::r_ppdFindOption(ppd, keyword);
  const bool isOneName = !name.empty() && name.find(',') == std::string::npos;
  if (option == nullptr || option->num_choices < 2 || !isOneName) return {};
  const auto after = [&](const ppd_choice_t& before) {
    markedPage(ppd, keyword, before.choice);
    markedPage(ppd, "media", name);
    return job::r_ppdFindMarkedChoice(ppd, keyword);
  };
  const ppd_choice_t* one = after(option->choices[0]);
  const ppd_choice_t* other = after(option->choices[1]);
  return one != nullptr && one == other ? one->choice : "";
}

std::string paperOfSize(ppd_file_t* ppd, int width, int height) {
  if (width <= 0 || height <= 0) return {};
  char name[80];
  std::snprintf(name, sizeof name, "custom_size_%d.%02dx%d.%02dmm", width / 100, width % 100,
                height / 100, height % 100);
  if (!namesAPaper(ppd, name)) return {};
  const ppd_size_t* page = job::r_ppdPageSize(ppd, nullptr);
  if (page == nullptr) return {};
  if (std::string_view(page->name) != "Custom") return page->name;
  return "Custom." + std::to_string(static_cast<int>(page->width)) + "x" +
         std::to_string(static_cast<int>(page->length));
}

}  // namespace kelm::explain
