// The orientation of the job, as a number and in the orientation comment of the PostScript.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/orientation.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace kelm::psrewrite {
namespace {

constexpr char kPortraitChoice[] = "%BeginFeature: *QVOrientation Portrait";
constexpr char kLandscapeChoice[] = "%BeginFeature: *QVOrientation Landscape";
constexpr std::string_view kPortraitLine = "%BeginFeature: *QVOrientation Portrait\n";
constexpr std::string_view kLandscapeLine = "%BeginFeature: *QVOrientation Landscape\n";

std::optional<int> presetOrientation(const job::PrintJobData* job) {
  std::string preset;
  getOptionValue(job, "com.apple.print.preset.Orientation..n.", preset);
  if (preset == "1") return 0;
  if (preset == "2") return 1;
  return std::nullopt;
}

std::optional<int> requestedOrientation(const job::PrintJobData* job) {
  std::string requested;
  getOptionValue(job, "orientation-requested", requested);
  if (requested == "4" || requested == "5") return 1;
  if (requested == "3" || requested == "6") return 0;
  return std::nullopt;
}

}  // namespace

int getPaperOrientation(const job::PrintJobData* job) {
  if (const auto orientation = presetOrientation(job)) return *orientation;
  if (const auto orientation = requestedOrientation(job)) return *orientation;
  std::string choice;
  if (!getOptionValue(job, "QVOrientation", choice)) return 0;
  if (choice == "Portrait") return 0;
  return choice == "Landscape" ? 1 : -1;
}

std::int32_t replaceOrientation(LineBuffer& line, const job::PrintJobData* job) {
  std::string choice;
  if (!getOptionValue(job, "QVOrientation", choice)) return -1;
  if (choice == "Portrait" || choice == "0") return replaceCustomOrientation(line, true);
  if (choice == "Landscape" || choice == "1") return replaceCustomOrientation(line, false);
  return -1;
}

std::int32_t replaceCustomOrientation(LineBuffer& line, bool portrait) {
  if (!line.contains(portrait ? kLandscapeChoice : kPortraitChoice)) return -1;
  const std::string_view replacement = portrait ? kPortraitLine : kLandscapeLine;
  line.overwrite(replacement);
  return static_cast<std::int32_t>(replacement.size());
}

}  // namespace kelm::psrewrite
