// The writers of all feature sections, one row each: keyword, code, and the source of the value.
//
// A job from the maker's dialog has the final value in the option `dialogKey`; without that option
// the value is `dialogDefault`. For any other job `plain` is called.
//
// In plain jobs, the diagnostic files lack the value lines of text stamps, tray repeat and QVGCRed.
// This is part of the interface: it is the form in which support reads the files.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "psrewrite/feature_tools.hpp"
#include "psrewrite/special_writers.hpp"

namespace kelm::psrewrite {

struct ValueFeature {
  const char* keyword;
  std::int32_t code;
  const char* dialogKey;
  const char* dialogDefault;
  FeatureWriter plain;

  // Whether the option does nothing in a plain job: its section is dropped, or says whether
  // another option has a text.
  constexpr bool isDialogOnly() const {
    constexpr bool (*kIdle[])(JobStream&, LineBuffer&, PrintJobData&) = {
        drop,
        dropUnlogged,
        writeBarcodeSwitch,
        writeSwitch<job::kOwnerName>,
        writeSwitch<job::kJobName>,
        writeSwitch<job::kSecretNum>,
    };
    for (const auto& writer : kIdle) {
      if (plain.refersTo(writer)) return true;
    }
    return false;
  }

  bool operator()(JobStream& stream, LineBuffer& buffer, PrintJobData& job) const {
    return job.isPrintPDE
               ? outputFeatureByReplacingValue(stream, buffer, job, dialogKey, dialogDefault)
               : plain(stream, buffer, job);
  }
};

// A feature whose writer handles dialog jobs and plain jobs itself.
struct OwnFeature {
  const char* keyword;
  std::int32_t code;
  FeatureWriter writer;

  constexpr bool isDialogOnly() const { return writer.refersTo(writeTrayRepeat); }

  bool operator()(JobStream& stream, LineBuffer& buffer, PrintJobData& job) const {
    return writer(stream, buffer, job);
  }
};

// clang-format off
// Stamps: page numbers.
inline constexpr ValueFeature outputQVPageNumStartNum{
    "QVPageNumStartNum", 1, "QVPageNumStartNumValue", "1", drop};
inline constexpr ValueFeature outputQVPageNumStartPage{
    "QVPageNumStartPage", 2, "QVPageNumStartPageValue", "1", drop};
inline constexpr ValueFeature outputQVStampPageFont{
    "QVStampPageFont", 3, "QVStampPageFontNameStringValueUTF8", "417269616C4D54", drop};
inline constexpr ValueFeature outputQVStampPageSize{
    "QVStampPageSize", 4, "QVStampPageSizeValue", "8", drop};
inline constexpr ValueFeature outputQVStampPageNumPrint{
    "QVPageNumPrint", 16, "QVPageNumPrintPSValue", "8", drop};
inline constexpr ValueFeature outputQVStampPageNumTransparent{
    "QVPageNumTransparent", 17, "QVPageNumTransparentPSValue", "8", drop};
inline constexpr ValueFeature outputQVStampPageNumPosition{
    "QVPageNumPosition", 18, "QVPageNumPositionPSValue", "0", drop};

// Stamps: date.
inline constexpr ValueFeature outputQVStampPageDatePrint{
    "QVDatePrint", 19, "QVDatePrintPSValue", "1", drop};
inline constexpr ValueFeature outputQVStampPageNumDateTransparent{
    "QVDateTransparent", 20, "QVDateTransparentPSValue", "1", drop};
inline constexpr ValueFeature outputQVStampPageNumDateTargetPage{
    "QVDateTargetPage", 21, "QVDateTargetPagePSValue", "1", drop};
inline constexpr ValueFeature outputQVStampPageDateSpecify{
    "QVDateSpecify", 22, "QVDateSpecifyPSValue", "0", drop};
inline constexpr ValueFeature outputQVStampPageDatePosition{
    "QVDatePosition", 23, "QVDatePositionPSValue", "0", drop};
inline constexpr ValueFeature outputQVDateInfo{
    "QVDateInfo", 5, "QVDateInfoTextValueUTF8", "", drop};
inline constexpr ValueFeature outputQVStampDateFont{
    "QVStampDateFont", 6, "QVStampDateFontNameStringValueUTF8", "417269616C4D54", drop};
inline constexpr ValueFeature outputQVStampDateSize{
    "QVStampDateSize", 7, "QVStampDateSizeValue", "8", drop};

// Stamps: text.
inline constexpr ValueFeature outputQVStampTextPosition{
    "QVTextPosition", 27, "QVTextPositionPSValue", "0", dropUnlogged};
inline constexpr ValueFeature outputQVStampTextPrint{
    "QVTextPrint", 24, "QVTextPrintPSValue", "1", dropUnlogged};
inline constexpr ValueFeature outputQVStampTextTransparent{
    "QVTextTransparent", 25, "QVTextTransparentPSValue", "1", dropUnlogged};
inline constexpr ValueFeature outputQVStampTextTargetPage{
    "QVTextTargetPage", 26, "QVTextTargetPagePSValue", "1", dropUnlogged};
inline constexpr ValueFeature outputQVTextInfo{
    "QVTextInfo", 12, "QVTextInfoTextValueUTF8", "", dropUnlogged};
inline constexpr ValueFeature outputQVStampTextFont{
    "QVStampTextFont", 13, "QVStampTextFontNameStringValueUTF8", "417269616C4D54", dropUnlogged};
inline constexpr ValueFeature outputQVStampTextSize{
    "QVStampTextSize", 14, "QVStampTextSizeValue", "8", dropUnlogged};

// Image shift, in 1/100 mm from the dialog.
inline constexpr ValueFeature outputQVImageShiftFrontV{
    "QVImageShiftFrontV", 8, "QVImageShiftFrontVValue100", "0", copy};
inline constexpr ValueFeature outputQVImageShiftFrontH{
    "QVImageShiftFrontH", 9, "QVImageShiftFrontHValue100", "0", copy};
inline constexpr ValueFeature outputQVImageShiftBackV{
    "QVImageShiftBackV", 10, "QVImageShiftBackVValue100", "0", copy};
inline constexpr ValueFeature outputQVImageShiftBackH{
    "QVImageShiftBackH", 11, "QVImageShiftBackHValue100", "0", copy};

// Header and footer; gutters.
inline constexpr ValueFeature outputQVHeaderFooterPrint{
    "QVHeaderFooterPrint", 15, "QVHeaderFooterPrintPSValue", "0", drop};
inline constexpr ValueFeature outputQVGutterDistance{
    "QVGutterDistance", 101, "QVGutterDistanceValue100", "0", copy};
inline constexpr ValueFeature outputQVBookletGutterDistance{
    "QVBookletGutterDistance", 102, "QVBookletGutterDistanceValue100", "0", copy};

// Colour balance.
inline constexpr ValueFeature outputQVGCCyan{
    "QVGCCyan", 201, "QVGCCyanStringValue", "100", copy};
inline constexpr ValueFeature outputQVGCMagenta{
    "QVGCMagenta", 202, "QVGCMagentaStringValue", "100", copy};
inline constexpr ValueFeature outputQVGCYellow{
    "QVGCYellow", 203, "QVGCYellowStringValue", "100", copy};
inline constexpr ValueFeature outputQVGCBlack{
    "QVGCBlack", 204, "QVGCBlackStringValue", "100", copy};
inline constexpr ValueFeature outputQVGCGray{
    "QVGCGray", 207, "QVGCGrayStringValue", "100", copy};
inline constexpr ValueFeature outputQVGCRed{
    "QVGCRed", 211, "QVGCRedStringValue", "100", copyUnlogged};

// Barcode area and output profile.
inline constexpr ValueFeature outputQVImageBarcodeSelection{
    "QVBarcodeSelection", 205, "QVBarcodeAreaDefinitionStringValueUTF8", "", writeBarcodeText};
inline constexpr ValueFeature outputQVImageBarcodeArea{
    "QVBarcodeArea", 208, "QVBarcodeAreaPSValue", "", writeBarcodeSwitch};
inline constexpr ValueFeature outputQVOutputProfileSelection{
    "QVOutputProfileSelection", 206, "QVOutputProfileSelectionStringValueUTF8", "", writeOutputProfile};

// Page trays and output box.
inline constexpr ValueFeature outputQVPageTrayStandard{
    "QVPageTrayStandard", 304, "QVPageTrayStandardTrayValue", "", drop};
inline constexpr ValueFeature outputQVPageTrayTray1{
    "QVPageTrayTray1", 305, "QVPageTrayTray1Value", "", drop};
inline constexpr ValueFeature outputQVPageTrayTray2{
    "QVPageTrayTray2", 306, "QVPageTrayTray2Value", "", drop};
inline constexpr ValueFeature outputQVPageTrayTray3{
    "QVPageTrayTray3", 311, "QVPageTrayTray3Value", "", drop};
inline constexpr ValueFeature outputQVPageTrayExternalFeeder{
    "QVPageTrayExternalFeeder", 316, "QVPageTrayExternalFeederValue", "", drop};
inline constexpr OwnFeature outputQVPageTrayRepeat{"QVPageTrayRepeat", 317, writeTrayRepeat};
inline constexpr ValueFeature outputQVPageTray{
    "QVPageTray", 312, "QVPageTrayPSValue", "Off", drop};
inline constexpr ValueFeature outputQVOutputBox{
    "QVOutputBox", 307, "QVPageOutputBoxPSValue", "", leave};

// Paper: zoom, target size, orientation.
inline constexpr ValueFeature outputQVManualZoom{
    "QVManualZoom", 315, "QVManualZoomPSValue", "OFF", writeManualZoom};
inline constexpr ValueFeature outputQVZoomRate{
    "QVZoomRate", 301, "QVZoomRateTextValue", "100", leave};
inline constexpr ValueFeature outputQVTargetPaperSizeWidth{
    "QVTargetPaperSizeWidth", 302, "QVTargetPaperSizeWidthValue100", "9000", writeTargetWidth};
inline constexpr ValueFeature outputQVTargetPaperSizeHeight{
    "QVTargetPaperSizeHeight", 303, "QVTargetPaperSizeHeightValue100", "14800", writeTargetHeight};
inline constexpr OwnFeature outputQVTargetPaperSize{"QVTargetPaperSize", 313, writeTargetPaper};
inline constexpr OwnFeature outputQVOrientation{"QVOrientation", 308, writeOrientation};

// Job identity, comment and forms.
inline constexpr ValueFeature outputQVOwnerName{
    "QVOwnerName", 401, "QVOwnerNamePSValue", "", writeSwitch<job::kOwnerName>};
inline constexpr OwnFeature outputQVOwnerNameInfo{"QVOwnerNameInfo", 402, writeOwnerName};
inline constexpr ValueFeature outputQVJobName{
    "QVJobName", 403, "QVJobNamePSValue", "", writeSwitch<job::kJobName>};
inline constexpr OwnFeature outputQVJobNameInfo{"QVJobNameInfo", 404, writeJobName};
inline constexpr ValueFeature outputQVSecretNum{
    "QVSecretNum", 405, "QVSecretNumPSValue", "", writeSwitch<job::kSecretNum>};
inline constexpr ValueFeature outputQVSecretNumInfo{
    "QVSecretNumInfo", 406, "QVSecretNumTextValue", "", writeSecretNum};
inline constexpr ValueFeature outputQVJobComment{
    "QVJobComment", 408, "QVJobCommentTextValueUTF8", "", writeJobComment};
inline constexpr ValueFeature outputQVFormSelect1{
    "QVFormSelect1", 409, "QVFormSelect1StringValueUTF8", "", writeForm<job::kFormSelect1>};
inline constexpr ValueFeature outputQVFormSelect2{
    "QVFormSelect2", 410, "QVFormSelect2StringValueUTF8", "", writeForm<job::kFormSelect2>};
inline constexpr ValueFeature outputQVHideJob{
    "QVHideJob", 407, "QVHideJobPSValue", "", drop};

// clang-format on

// The size of the page itself, for callers outside the filter. The copy loop deliberately calls
// neither: these sections pass through unchanged.
inline bool outputQVPAGESizeWidth(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  return outputFeatureByReplacingValue(stream, buffer, job, "QVPAGESizeWidthValue100", "9000");
}
inline bool outputQVPAGESizeHeight(JobStream& stream, LineBuffer& buffer, PrintJobData& job) {
  return outputFeatureByReplacingValue(stream, buffer, job, "QVPAGESizeHeightValue100", "14800");
}

}  // namespace kelm::psrewrite
