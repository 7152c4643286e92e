// Papers that disagree, or that the printer does not have.
// SPDX-License-Identifier: Apache-2.0
#include "explain/paper_remarks.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "explain/words.hpp"
#include "job/ppd_calls.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::explain {
namespace {

constexpr double kPaperTolerance = 2.0;  // points

struct PageSize {
  float width;
  float length;
};

// The page size that results if this option is added to the choices that are marked in the PPD. A
// "media" that names no paper does not change it.
std::optional<PageSize> markedPage(ppd_file_t* ppd, const char* name, const std::string& value) {
  cups_option_t option{const_cast<char*>(name), const_cast<char*>(value.c_str())};
  job::r_cupsMarkOptions(ppd, 1, &option);
  const ppd_size_t* size = job::r_ppdPageSize(ppd, nullptr);
  if (size == nullptr) return std::nullopt;
  return PageSize{size->width, size->length};
}

// Whether libcups takes a word of "media" for a paper: the word then gives the same page size
// whatever page size was marked before.
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

// A word of "media" that is no paper, tray or paper type; empty when each is one.
std::string strangeMedia(const Request& request, const std::string& value,
                         const std::vector<std::string>& known) {
  std::string strange;
  for (const std::string& word : wordsOf(value)) {
    if (strange.empty() && !isAmong(word, known) && !namesAPaper(request.ppd, word)) strange = word;
  }
  outcomeOf(request);  // marks the request's choices again
  return strange;
}

}  // namespace

std::optional<Remark> remarkOnMedia(const Request& request, const Option& option,
                                    const std::vector<std::string>& known) {
  const std::string strange = strangeMedia(request, option.value, known);
  if (strange.empty()) return std::nullopt;
  return Remark{
      option,
      "has the word \"" + strange + "\", which is no paper, tray or paper type of this printer",
      {},
      ""};
}

std::optional<Remark> remarkOnPaper(const Request& request) {
  const Option* media = findOption(request.options, "media");
  const Option* page = findOption(request.options, "PageSize");
  if (page == nullptr) page = findOption(request.options, "PageRegion");
  if (request.ppd == nullptr || media == nullptr || page == nullptr) return std::nullopt;
  if (media->giver != Giver::kJob && page->giver == Giver::kJob) return std::nullopt;
  job::r_ppdMarkDefaults(request.ppd);
  const auto one = markedPage(request.ppd, page->name.c_str(), page->value);
  const auto other = markedPage(request.ppd, "media", media->value);
  outcomeOf(request);  // marks the request's choices again
  if (!one || !other) return std::nullopt;
  const auto agree = [](float a, float b) {
    return std::abs(static_cast<double>(a) - static_cast<double>(b)) <= kPaperTolerance;
  };
  if (agree(one->width, other->width) && agree(one->length, other->length)) return std::nullopt;
  return Remark{*media, "is not the same paper as " + page->name + "=" + page->value, {}, ""};
}

std::optional<Remark> remarkOnCustomPaper(const Request& request, const Option& option) {
  const bool isPaper = option.name == "media" || option.name == "PageSize";
  if (!isPaper || request.ppd == nullptr || request.ppd->variable_sizes == 0) return std::nullopt;
  job::r_ppdMarkDefaults(request.ppd);
  const auto page = markedPage(request.ppd, option.name.c_str(), option.value);
  const ppd_choice_t* choice = job::r_ppdFindMarkedChoice(request.ppd, "PageSize");
  const bool isCustom = choice != nullptr && std::string_view(choice->choice) == "Custom";
  outcomeOf(request);  // marks the request's choices again
  if (!page || !isCustom) return std::nullopt;
  const float* least = request.ppd->custom_min;
  const float* most = request.ppd->custom_max;
  const auto isWithin = [&](float length, int i) {
    return length >= least[i] && length <= most[i];
  };
  if (isWithin(page->width, 0) && isWithin(page->length, 1)) return std::nullopt;
  const auto points = [](float length) { return std::to_string(std::lround(length)); };
  return Remark{option,
                "is not a paper that the printer can have: its width must be " + points(least[0]) +
                    " to " + points(most[0]) + " points, its height " + points(least[1]) + " to " +
                    points(most[1]),
                {},
                ""};
}

}  // namespace kelm::explain
