// The printer's features in the PostScript, and the search for them.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/features.hpp"

#include <cstring>
#include <iterator>
#include <string_view>

namespace kelm::psrewrite {
namespace {

constexpr Feature kFeatures[] = {
    outputQVOutputBox,
    outputQVPageNumStartNum,
    outputQVPageNumStartPage,
    outputQVStampPageFont,
    outputQVStampPageSize,
    outputQVDateInfo,
    outputQVStampDateFont,
    outputQVStampDateSize,
    outputQVTextInfo,
    outputQVStampTextFont,
    outputQVStampTextSize,
    outputQVImageShiftFrontV,
    outputQVImageShiftFrontH,
    outputQVImageShiftBackV,
    outputQVImageShiftBackH,
    outputQVGutterDistance,
    outputQVBookletGutterDistance,
    outputQVGCCyan,
    outputQVGCMagenta,
    outputQVGCYellow,
    outputQVGCBlack,
    outputQVGCGray,
    outputQVGCRed,
    outputQVImageBarcodeSelection,
    outputQVOutputProfileSelection,
    outputQVOrientation,
    outputQVManualZoom,
    outputQVZoomRate,
    {"QVPAGESizeWidth", 309},
    {"QVPAGESizeHeight", 310},
    outputQVTargetPaperSizeWidth,
    outputQVTargetPaperSizeHeight,
    outputQVTargetPaperSize,
    outputQVPageTrayStandard,
    outputQVPageTrayTray1,
    outputQVPageTrayTray2,
    outputQVPageTrayTray3,
    outputQVPageTrayExternalFeeder,
    outputQVPageTrayRepeat,
    outputQVPageTray,
    outputQVOwnerNameInfo,
    outputQVOwnerName,
    outputQVJobNameInfo,
    outputQVJobName,
    outputQVSecretNumInfo,
    outputQVSecretNum,
    outputQVJobComment,
    outputQVFormSelect1,
    outputQVFormSelect2,
    outputQVHeaderFooterPrint,
    outputQVStampPageNumPrint,
    outputQVStampPageNumPosition,
    outputQVStampPageDatePrint,
    outputQVStampPageNumDateTransparent,
    outputQVStampPageNumDateTargetPage,
    outputQVStampPageDateSpecify,
    outputQVStampPageDatePosition,
    outputQVStampTextPrint,
    outputQVStampTextTransparent,
    outputQVStampTextTargetPage,
    outputQVStampTextPosition,
    outputQVStampPageNumTransparent,
    outputQVImageBarcodeArea,
    {"QVBarcodeDensity", 209},
    {"QVBarcodeProof", 210},
    outputQVHideJob,
};

constexpr bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

constexpr bool everyKeywordIsReachable() {
  for (std::size_t earlier = 0; earlier < std::size(kFeatures); ++earlier) {
    for (std::size_t later = earlier + 1; later < std::size(kFeatures); ++later) {
      if (contains(kFeatures[later].keyword, kFeatures[earlier].keyword)) return false;
    }
  }
  return true;
}

constexpr bool everyCodeIsUnique() {
  for (std::size_t i = 0; i < std::size(kFeatures); ++i) {
    for (std::size_t j = i + 1; j < std::size(kFeatures); ++j) {
      if (kFeatures[i].code == kFeatures[j].code) return false;
    }
  }
  return true;
}

static_assert(everyKeywordIsReachable(), "a keyword comes after the longer ones that contain it");
static_assert(everyCodeIsUnique());

}  // namespace

std::span<const Feature> features() { return kFeatures; }

std::int32_t getFeature(const char* line) {
  if (line == nullptr || std::strstr(line, "BeginFeature") == nullptr) return 0;
  for (const Feature& feature : kFeatures) {
    if (std::strstr(line, feature.keyword) != nullptr) return feature.code;
  }
  return 0;
}

FeatureWriter featureWriter(std::int32_t code) {
  for (const Feature& feature : kFeatures) {
    if (feature.code == code) return feature.writer;
  }
  return {};
}

}  // namespace kelm::psrewrite
