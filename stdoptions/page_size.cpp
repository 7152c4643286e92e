// The paper that the header names: the page size that CUPS wrote into the PostScript.
// SPDX-License-Identifier: Apache-2.0
#include "stdoptions/page_size.hpp"

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "base/number_text.hpp"
#include "job/paper.hpp"
#include "job/ppd_calls.hpp"

namespace kelm::stdoptions {
namespace {

constexpr double kPointsPerMillimetre = 72.0 / 25.4;
constexpr double kTolerance = 2.0;  // points

struct Points {
  double width;
  double height;
};

bool agree(const Points& one, const Points& other) {
  return std::abs(one.width - other.width) <= kTolerance &&
         std::abs(one.height - other.height) <= kTolerance;
}

double pointsOfHundredths(const char* hundredths) {
  return base::leadingReal(hundredths) / 100.0 * kPointsPerMillimetre;
}

// Removes a whole number from the front of `text` and returns it.
std::optional<int> takeNumber(std::string_view& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

// The size that the header and the PostScript's rewriting read from a paper's name: a row of the
// paper table, or "Custom.WIDTHxHEIGHT" in whole points. Nothing for any other text.
std::optional<Points> sizeNamed(std::string_view name) {
  constexpr std::string_view kCustom = "Custom.";
  if (name.starts_with(kCustom)) {
    name.remove_prefix(kCustom.size());
    const auto width = takeNumber(name);
    if (!width || !name.starts_with('x')) return std::nullopt;
    name.remove_prefix(1);
    const auto height = takeNumber(name);
    if (!height || !name.empty()) return std::nullopt;
    return Points{static_cast<double>(*width), static_cast<double>(*height)};
  }
  const job::Paper* paper = job::findPaper(name == "tabloid" ? "Tabloid" : name);
  if (paper == nullptr) return std::nullopt;
  return Points{pointsOfHundredths(paper->width), pointsOfHundredths(paper->height)};
}

// The whole number of points that the printer rounds to the whole millimetres of `points`.
long wholePoints(double points) {
  return std::lround(std::round(points / kPointsPerMillimetre) * kPointsPerMillimetre);
}

std::string nameOf(const ppd_size_t& size) {
  if (std::string_view(size.name) != "Custom") return size.name;
  return "Custom." + std::to_string(wholePoints(static_cast<double>(size.width))) + "x" +
         std::to_string(wholePoints(static_cast<double>(size.length)));
}

}  // namespace

void settlePageSize(job::PrintJobData& job) {
  const ppd_size_t* size = job::r_ppdPageSize(job.ppd, nullptr);
  if (size == nullptr) return;
  const Points page{static_cast<double>(size->width), static_cast<double>(size->length)};
  const auto typedFor = [&](const char* option) -> std::optional<std::string> {
    const char* value = cupsGetOption(option, job.numOptions, job.options);
    const auto named = value == nullptr ? std::nullopt : sizeNamed(value);
    if (!named || !agree(*named, page)) return std::nullopt;
    return value;
  };
  if (!typedFor(job::kMappedPaperKey)) job::removeOption(job, job::kMappedPaperKey);
  job::setOption(job, "media", typedFor("media").value_or(nameOf(*size)));
}

}  // namespace kelm::stdoptions
