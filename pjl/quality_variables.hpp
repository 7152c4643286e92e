// The variables of layout, stamps, image shift, image quality, colour and barcodes.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pjl/quality_writers.hpp"
#include "pjl/value_tables.hpp"
#include "pjl/variables.hpp"

namespace kelm::pjl {

inline constexpr char kStampFont[] = "417269616C4D54";  // "ArialMT" as hex text

// clang-format off
inline constexpr TableVariable Output_QVMULTIUP{"QVMultiUp", "QVMULTIUP", kMultiUp};
inline constexpr TableVariable Output_QVMULTIUPSINGLEPAGE{"QVMultiUpSinglePage", "QVMULTIUPSINGLEPAGE", kMultiUpSinglePage};
inline constexpr TableVariable Output_QVBOOKLET{"QVBooklet", "QVBOOKLET", kBooklet};

// Page-number and date stamps, for jobs of the maker's dialog only.
inline constexpr TableVariable Output_QVHEADERFOOTERPRINT{"QVHeaderFooterPrintValue", "QVHEADERFOOTERPRINT", kDialogSwitch};
inline constexpr TableVariable Output_QVPAGENUMPRINT{"QVPageNumPrintValue", "QVPAGENUMPRINT", kDialogSwitch};
inline constexpr TableVariable Output_QVPAGENUMTRANSPARENT{"QVPageNumTransparentValue", "QVPAGENUMTRANSPARENT", kDialogSwitch};
inline constexpr CopyVariable Output_QVPAGENUMSTARTNUM{"QVPageNumStartNumValue", "QVPAGENUMSTARTNUM", "1"};
inline constexpr CopyVariable Output_QVPAGENUMSTARTPAGE{"QVPageNumStartPageValue", "QVPAGENUMSTARTPAGE", "1"};
inline constexpr TableVariable Output_QVPAGENUMPOSITION{"QVPageNumPosition", "QVPAGENUMPOSITION", kStampPosition};
inline constexpr CopyVariable Output_QVSTAMPPAGEFONT{"QVStampPageFontNameStringValueUTF8", "QVSTAMPPAGEFONT", kStampFont};
inline constexpr CopyVariable Output_QVSTAMPPAGESIZE{"QVStampPageSizeValue", "QVSTAMPPAGESIZE", "8"};
inline constexpr TableVariable Output_QVDATEPRINT{"QVDatePrintValue", "QVDATEPRINT", kDialogSwitch};
inline constexpr TableVariable Output_QVDATETRANSPARENT{"QVDateTransparentValue", "QVDATETRANSPARENT", kDialogSwitch};
inline constexpr TableVariable Output_QVDATETARGETPAGE{"QVDateTargetPage", "QVDATETARGETPAGE", kTargetPage};
inline constexpr TableVariable Output_QVDATESPECIFY{"QVDateSpecify", "QVDATESPECIFY", kDateSpecify};
inline constexpr CopyVariable Output_QVQVDateInfo{"QVDateInfoTextValueUTF8", "QVDATEINFO", ""};
inline constexpr TableVariable Output_QVDATEPOSITION{"QVDatePosition", "QVDATEPOSITION", kStampPosition};
inline constexpr CopyVariable Output_QVSTAMPDATEFONT{"QVStampDateFontNameStringValueUTF8", "QVSTAMPDATEFONT", kStampFont};
inline constexpr CopyVariable Output_QVSTAMPDATESIZE{"QVStampDateSizeValue", "QVSTAMPDATESIZE", "8"};

inline constexpr DialogOrPlain Output_QVIMAGESHIFT{
    TableVariable{"QVImageShiftValue", "QVIMAGESHIFT", kDialogSwitch},
    TableVariable{"QVImageShift", "QVIMAGESHIFT", kTrueFalse}};
inline constexpr DialogOrPlain Output_QVIMAGESHIFTFRONTV{
    CopyVariable{"QVImageShiftFrontVValue100", "QVIMAGESHIFTFRONTV", "0"},
    CopyVariable{"QVImageShiftFrontV", "QVIMAGESHIFTFRONTV", "0"}};
inline constexpr DialogOrPlain Output_QVIMAGESHIFTFRONTH{
    CopyVariable{"QVImageShiftFrontHValue100", "QVIMAGESHIFTFRONTH", "0"},
    CopyVariable{"QVImageShiftFrontH", "QVIMAGESHIFTFRONTH", "0"}};
inline constexpr DialogOrPlain Output_QVIMAGESHIFTBACKV{
    CopyVariable{"QVImageShiftBackVValue100", "QVIMAGESHIFTBACKV", "0"},
    CopyVariable{"QVImageShiftBackV", "QVIMAGESHIFTBACKV", "0"}};
inline constexpr DialogOrPlain Output_QVIMAGESHIFTBACKH{
    CopyVariable{"QVImageShiftBackHValue100", "QVIMAGESHIFTBACKH", "0"},
    CopyVariable{"QVImageShiftBackH", "QVIMAGESHIFTBACKH", "0"}};
inline constexpr TableVariable Output_QVROTATE{"QVRotate", "QVROTATE", kRotate};

// The text stamp, for jobs of the maker's dialog only.
inline constexpr TableVariable Output_QVTEXTPRINT{"QVTextPrintValue", "QVTEXTPRINT", kDialogSwitch};
inline constexpr TableVariable Output_QVTEXTTRANSPARENT{"QVTextTransparentValue", "QVTEXTTRANSPARENT", kDialogSwitch};
inline constexpr TableVariable Output_QVTEXTTARGETPAGE{"QVTextTargetPage", "QVTEXTTARGETPAGE", kTargetPage};
inline constexpr CopyVariable Output_QVTEXTInfo{"QVTextInfoTextValueUTF8", "QVTEXTINFO", ""};
inline constexpr TableVariable Output_QVTEXTPOSITION{"QVTextPosition", "QVTEXTPOSITION", kStampPosition};
inline constexpr CopyVariable Output_QVSTAMPTEXTFONT{"QVStampTextFontNameStringValueUTF8", "QVSTAMPTEXTFONT", kStampFont};
inline constexpr CopyVariable Output_QVSTAMPTEXTSIZE{"QVStampTextSizeValue", "QVSTAMPTEXTSIZE", "8"};

inline constexpr TableVariable Output_QVDITHERTYPE{"QVDitherType", "QVDITHERTYPE", kDitherType};
inline constexpr TableVariable Output_QVPRINTDENSITY{"QVPrintDensity", "QVPRINTDENSITY", kDensity};
inline constexpr TableVariable Output_QVRESOLUTION{"QVImageQuality", "QVIMAGEQUALITY", kImageQuality};
inline constexpr TableVariable Output_QVLINESMOOTHING{"QVLineSmoothing", "QVLINESMOOTHING", kLineSmoothing};
inline constexpr TableVariable Output_QVSCREENING{"QVScreening", "QVSCREENING", kScreening};
inline constexpr DialogOrPlain Output_QVGAMMAADJUSTMENT{
    TableVariable{"QVGammaAdjustmentValue", "QVGAMMAADJUSTMENT", kDialogSwitch},
    TableVariable{"QVGammaAdjustment", "QVGAMMAADJUSTMENT", kSwitch}};
inline constexpr TableVariable Output_QVGCBRIGHTNESS{"QVGCBrightness", "QVGCBRIGHTNESS", kBrightness};
inline constexpr TableVariable Output_QVGCCONTRAST{"QVGCContrast", "QVGCCONTRAST", kContrast};
inline constexpr DialogOrPlain Output_QVGCCYAN{
    CopyVariable{"QVGCCyanStringValue", "QVGCCYAN", "100"},
    CopyVariable{"QVGCCyan", "QVGCCYAN", "100"}};
inline constexpr DialogOrPlain Output_QVGCMAGENTA{
    CopyVariable{"QVGCMagentaStringValue", "QVGCMAGENTA", "100"},
    CopyVariable{"QVGCMagenta", "QVGCMAGENTA", "100"}};
inline constexpr DialogOrPlain Output_QVGCYELLOW{
    CopyVariable{"QVGCYellowStringValue", "QVGCYELLOW", "100"},
    CopyVariable{"QVGCYellow", "QVGCYELLOW", "100"}};
inline constexpr DialogOrPlain Output_QVGCBLACK{
    CopyVariable{"QVGCBlackStringValue", "QVGCBLACK", "100"},
    CopyVariable{"QVGCBlack", "QVGCBLACK", "100"}};
inline constexpr OwnVariable Output_QVGCGRAY{
    "QVGCGRAY and QVGCRED", writeGrayAndRedLines,
    "QVGCGrayStringValue, then QVGCRedStringValue", "QVGCRed, then QVGCGray",
    "as it is; two lines, QVGCGRAY first (dialog) or QVGCRED first (plain)", "100 each"};
inline constexpr OwnVariable Output_QVBCODEAREA{
    "QVBARCODEAREA", writeBarcodeAreaLine, "QVBarcodeArea", "QVBarcodeSelection",
    "OFF: OFF, ON: ON (dialog); ON for a valid custom value, else OFF (plain)", "OFF"};
inline constexpr OwnVariable Output_QVBCODEAREASELECTION{
    "QVBARCODESELECTION", writeBarcodeSelectionLine,
    "QVBarcodeAreaDefinitionStringValueUTF8", "QVBarcodeSelection",
    "as it is (dialog); the custom value in hex (plain)", "empty"};
inline constexpr TableVariable Output_QVBARCODEDENSITY{"QVBarcodeDensity", "QVBARCODEDENSITY", kDensity};
inline constexpr DialogOrPlain Output_QVBARCODEPROOF{
    TableVariable{"QVBarcodeProofValue", "QVBARCODEPROOF", kDialogSwitch},
    TableVariable{"QVBarcodeProof", "QVBARCODEPROOF", kSwitch}};
inline constexpr DialogOrPlain Output_QVENVELOPEIMAGEPROCESSING{
    TableVariable{"QVEnvelopeImageProcessingValue", "QVENVELOPEIMAGEPROCESSING", kDialogSwitch},
    TableVariable{"QVEnvelopeImageProcessing", "QVENVELOPEIMAGEPROCESSING", kSwitch}};
inline constexpr DialogOrPlain Output_QVCOLORPROFILE{
    TableVariable{"QVColorProfileValue", "QVCOLORPROFILE", kDialogSwitch},
    TableVariable{"QVColorProfile", "QVCOLORPROFILE", kSwitch}};
inline constexpr OwnVariable Output_QVOUTPUTPROFILESELECTION{
    "QVOUTPUTPROFILESELECTION", writeOutputProfileLine,
    "QVOutputProfileSelectionStringValueUTF8", "QVOutputProfileSelection",
    "as it is (dialog); AUTO, NOTUSE or the custom value in hex (plain)", "empty (dialog), AUTO (plain)"};
inline constexpr TableVariable Output_QVRENDERINGINTENT{"QVRenderingIntent", "QVRENDERINGINTENT", kRenderingIntent};
inline constexpr TableVariable Output_QVMAXDROPS{"QVMaxDrops", "QVMAXDROPS", kMaxDrops};
// clang-format on

}  // namespace kelm::pjl
