// Decisions about a job before its first byte is written.
// SPDX-License-Identifier: Apache-2.0
#include "filter/job_setup.hpp"

#include <cmath>
#include <cstring>
#include <string>

#include "base/hex_text.hpp"
#include "base/number_text.hpp"
#include "job/custom_paper.hpp"
#include "job/diagnostics.hpp"

namespace kelm::filter {
namespace {

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
  job::LogMessage("201609301", true);
  job::heighLength = lengthOfPoints(media.c_str() + x + 1);
  job::LogMessage("201609302", true);
  media.resize(x);
  job::LogMessage("201609303", true);
  const char* width = media.c_str() + dot + 1;
  job::widthLength = lengthOfPoints(width);
  job::LogMessage("201609304", true);
  job::LogMessage(width, true);
}

}  // namespace

void decideCustomPaper(const job::PrintJobData& job) {
  job::customSizeFlg = false;
  if (job.numOptions > kMostOptionsForCustomPaper && !job.optionsSettled) return;
  for (const cups_option_t& option : job::jobOptions(&job)) {
    if (std::strcmp(option.name, "media") != 0 || option.value == nullptr) continue;
    if (std::strstr(option.value, "Custom") == nullptr) continue;
    job::customSizeFlg = true;
    takeCustomSize(option.value);
  }
}

void decideOutputFace(job::PrintJobData& job) {
  job.keepOutputFace = job::outputTrayDecidesFace(&job) ? 1 : 0;
}

}  // namespace kelm::filter
