// Decisions about a job before its first byte is written.
// SPDX-License-Identifier: Apache-2.0
#include "job/job_setup.hpp"

#include <cmath>
#include <cstring>
#include <string>

#include "base/hex_text.hpp"
#include "base/number_text.hpp"
#include "job/custom_paper.hpp"
#include "job/diagnostics.hpp"

namespace kelm::job {
namespace {

// Part of the interface: with more options than this, "media" is not read for a custom size.
constexpr std::int32_t kMostOptionsForCustomPaper = 99;
constexpr double kPointsPerInch = 72.0;
constexpr double kMillimetresPerInch = 25.4;

// `text` is a number of points; the result is in 1/100 mm, whole millimetres, cut to 32 bits.
std::int32_t lengthOfPoints(const char* text) {
  const double millimetres = base::leadingInteger(text) / kPointsPerInch * kMillimetresPerInch;
  return base::cutTo32Bits(static_cast<std::int64_t>(std::trunc(millimetres + 0.5)) * 100);
}

// Reads the sizes from "Custom.WIDTHxHEIGHT"; without "." or "x" they keep their values.
void takeCustomSize(std::string media) {
  if (media.size() >= base::kTextBufferSize) return;
  const std::size_t dot = media.find('.');
  if (dot == std::string::npos) return;
  const std::size_t x = media.find('x', dot + 1);
  if (x == std::string::npos) return;
  LogMessage("201609301", true);
  heighLength = lengthOfPoints(media.c_str() + x + 1);
  LogMessage("201609302", true);
  media.resize(x);
  LogMessage("201609303", true);
  const char* width = media.c_str() + dot + 1;
  widthLength = lengthOfPoints(width);
  LogMessage("201609304", true);
  LogMessage(width, true);
}

}  // namespace

void decideCustomPaper(const PrintJobData& job) {
  customSizeFlg = false;
  if (job.numOptions > kMostOptionsForCustomPaper && !job.optionsSettled) return;
  for (const cups_option_t& option : jobOptions(&job)) {
    if (std::strcmp(option.name, "media") != 0 || option.value == nullptr) continue;
    if (std::strstr(option.value, "Custom") == nullptr) continue;
    customSizeFlg = true;
    takeCustomSize(option.value);
  }
}

void decideOutputFace(PrintJobData& job) {
  job.keepOutputFace = outputTrayDecidesFace(&job) ? 1 : 0;
}

}  // namespace kelm::job
