// The printer's papers, and the size of the paper that a job is printed on.
// SPDX-License-Identifier: Apache-2.0
#include "job/paper.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "base/number_text.hpp"
#include "base/tokens.hpp"
#include "platform/platform.hpp"

namespace kelm::job {
namespace {

constexpr std::size_t kMostMediaBytes = 254;
constexpr std::size_t kMostWidthBytes = 255;

float wholeMillimetres(double points) {
  return std::floor(static_cast<float>(points / 72.0 * 25.4 + 0.5));
}

std::int32_t wholeNumber(float value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(value)) return 0;
  if (value >= static_cast<float>(Limits::max())) return Limits::max();
  if (value <= static_cast<float>(Limits::min())) return Limits::min();
  return static_cast<std::int32_t>(value);
}

std::string hundredthsOfPoints(std::string_view points) {
  const float millimetres = wholeMillimetres(base::leadingReal(std::string(points).c_str()));
  return std::to_string(wholeNumber(millimetres * 100));
}

void customMediaSize(std::string_view media, std::string& width, std::string& height) {
  std::string_view rest = media.substr(0, kMostMediaBytes);
  base::nextToken(rest, '.');
  if (const auto points = base::nextToken(rest, 'x')) width = hundredthsOfPoints(*points);
  if (const auto points = base::nextToken(rest, 'x')) height = hundredthsOfPoints(*points);
}

void copyPaperSize(std::string_view name, std::string& width, std::size_t widthSize,
                   std::string& height, std::size_t heightSize) {
  const Paper* paper = findPaper(name);
  if (paper == nullptr) return;
  if (widthSize <= std::strlen(paper->width) + 1) return;
  if (heightSize <= std::strlen(paper->height) + 1) return;
  width = paper->width;
  height = paper->height;
}

void mappedPaperSize(const std::string& name, std::string& width, std::size_t widthSize,
                     std::string& height, std::size_t heightSize) {
  if (name.find("Custom") == std::string::npos) {
    return copyPaperSize(name, width, widthSize, height, heightSize);
  }
  float widthMillimetres = 0;
  float heightMillimetres = 0;
  getCustomPaperSize(name.c_str(), &widthMillimetres, &heightMillimetres);
  width = hundredthsText(widthMillimetres);
  height = hundredthsText(heightMillimetres);
}

}  // namespace

const Paper* findPaper(std::string_view name) {
  const auto paper = std::find_if(std::begin(kPapers), std::end(kPapers),
                                  [&](const Paper& candidate) { return name == candidate.name; });
  return paper == std::end(kPapers) ? nullptr : paper;
}

void NotPDE_PageSize(const PrintJobData* job, std::string& width, std::string& height) {
  const char* option =
      job == nullptr ? nullptr : cupsGetOption("media", job->numOptions, job->options);
  const std::string media = option != nullptr ? option : kDefaultPaper;
  if (media.find("Custom") != std::string::npos) return customMediaSize(media, width, height);
  const Paper* paper = findPaper(media == "tabloid" ? "Tabloid" : media);
  if (paper == nullptr) return;
  width = paper->width;
  height = paper->height;
}

int getCustomPaperSize(const char* text, float* width, float* height) {
  if (text == nullptr || width == nullptr || height == nullptr) return -1;
  const char* dot = std::strchr(text, '.');
  const char* x = std::strchr(text, 'x');
  if (dot == nullptr || x == nullptr) return 0;
  if (x > dot) {
    std::string points(dot + 1, x);
    points.resize(std::min(points.size(), kMostWidthBytes));
    *width = wholeMillimetres(base::leadingReal(points.c_str()));
  }
  if (x[1] != '\0') *height = wholeMillimetres(base::leadingReal(x + 1));
  return 0;
}

bool hasCustomPaperSize(std::string_view text) {
  const std::size_t x = text.find('x');
  return text.find('.') != std::string_view::npos && x != std::string_view::npos &&
         x + 1 < text.size();
}

std::string hundredthsText(float millimetres) {
  char text[std::numeric_limits<double>::max_exponent10 + 3];
  std::snprintf(text, sizeof text, "%.f", static_cast<double>(millimetres * 100));
  return text;
}

int getQVTargetPaperSize(const PrintJobData* job, std::string* width, std::size_t widthSize,
                         std::string* height, std::size_t heightSize) {
  if (job == nullptr || width == nullptr || height == nullptr) return -1;
  width->clear();
  height->clear();
  std::string name;
  if (getOptionValue(job, "QVTargetPaperSize", name) &&
      name.find("SameAsOriginal") == std::string::npos) {
    copyPaperSize(name, *width, widthSize, *height, heightSize);
  } else if (getOptionValue(job, kMappedPaperKey, name)) {
    mappedPaperSize(name, *width, widthSize, *height, heightSize);
  } else {
    NotPDE_PageSize(job, *width, *height);
    platform::platform().systemLog->error("[DEBUG]NotPDE_PageSize width=" + *width +
                                          ", height=" + *height);
  }
  return 0;
}

}  // namespace kelm::job
