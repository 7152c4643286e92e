// Papers that disagree, or that the printer does not have.
// SPDX-License-Identifier: Apache-2.0
#include "explain/paper_remarks.hpp"

#include <strings.h>

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>
#include <utility>

#include "explain/named_media.hpp"
#include "explain/words.hpp"
#include "job/ppd_calls.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::explain {
namespace {

constexpr double kPaperTolerance = 2.0;  // points

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
  std::vector<std::string> names = known;
  for (const ppd_size_t& paper :
       std::span(request.ppd->sizes, static_cast<std::size_t>(request.ppd->num_sizes))) {
    names.emplace_back(paper.name);
  }
  return Remark{
      option,
      "has the word \"" + strange + "\", which is no paper, tray or paper type of this printer",
      {},
      nearestOf(strange, names)};
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

std::optional<Remark> remarkOnPageRegion(const Option& option) {
  constexpr std::string_view kCustom = "Custom";
  const bool isCustom = strncasecmp(option.value.c_str(), kCustom.data(), kCustom.size()) == 0;
  if (option.name != "PageRegion" || !isCustom) return std::nullopt;
  std::string nearest = option.value.size() > kCustom.size() ? "PageSize=" + option.value : "";
  return Remark{option,
                "is a paper without width and height: CUPS reads a custom size only from PageSize "
                "and media",
                {},
                std::move(nearest)};
}

}  // namespace kelm::explain
