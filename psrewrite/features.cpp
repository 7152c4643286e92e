// The printer's features in the PostScript, and the search for them.
#include "psrewrite/features.hpp"

#include <cstring>
#include <iterator>
#include <string_view>

namespace kelm::psrewrite {
namespace {

constexpr Feature kFeatures[] = {
    {"QVOutputBox", 307},
    {"QVPageNumStartNum", 1},
    {"QVPageNumStartPage", 2},
    {"QVStampPageFont", 3},
    {"QVStampPageSize", 4},
    {"QVDateInfo", 5},
    {"QVStampDateFont", 6},
    {"QVStampDateSize", 7},
    {"QVTextInfo", 12},
    {"QVStampTextFont", 13},
    {"QVStampTextSize", 14},
    {"QVImageShiftFrontV", 8},
    {"QVImageShiftFrontH", 9},
    {"QVImageShiftBackV", 10},
    {"QVImageShiftBackH", 11},
    {"QVGutterDistance", 101},
    {"QVBookletGutterDistance", 102},
    {"QVGCCyan", 201},
    {"QVGCMagenta", 202},
    {"QVGCYellow", 203},
    {"QVGCBlack", 204},
    {"QVGCGray", 207},
    {"QVGCRed", 211},
    {"QVBarcodeSelection", 205},
    {"QVOutputProfileSelection", 206},
    {"QVOrientation", 308},
    {"QVManualZoom", 315},
    {"QVZoomRate", 301},
    {"QVPAGESizeWidth", 309},
    {"QVPAGESizeHeight", 310},
    {"QVTargetPaperSizeWidth", 302},
    {"QVTargetPaperSizeHeight", 303},
    {"QVTargetPaperSize", 313},
    {"QVPageTrayStandard", 304},
    {"QVPageTrayTray1", 305},
    {"QVPageTrayTray2", 306},
    {"QVPageTrayTray3", 311},
    {"QVPageTrayExternalFeeder", 316},
    {"QVPageTrayRepeat", 317},
    {"QVPageTray", 312},
    {"QVOwnerNameInfo", 402},
    {"QVOwnerName", 401},
    {"QVJobNameInfo", 404},
    {"QVJobName", 403},
    {"QVSecretNumInfo", 406},
    {"QVSecretNum", 405},
    {"QVJobComment", 408},
    {"QVFormSelect1", 409},
    {"QVFormSelect2", 410},
    {"QVHeaderFooterPrint", 15},
    {"QVPageNumPrint", 16},
    {"QVPageNumPosition", 18},
    {"QVDatePrint", 19},
    {"QVDateTransparent", 20},
    {"QVDateTargetPage", 21},
    {"QVDateSpecify", 22},
    {"QVDatePosition", 23},
    {"QVTextPrint", 24},
    {"QVTextTransparent", 25},
    {"QVTextTargetPage", 26},
    {"QVTextPosition", 27},
    {"QVPageNumTransparent", 17},
    {"QVBarcodeArea", 208},
    {"QVBarcodeDensity", 209},
    {"QVBarcodeProof", 210},
    {"QVHideJob", 407},
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

static_assert(std::size(kFeatures) == 66);
static_assert(everyKeywordIsReachable(), "a keyword goes behind the longer ones that contain it");
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

}  // namespace kelm::psrewrite
