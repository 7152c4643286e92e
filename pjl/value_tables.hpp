// The value tables of the header's variables: each choice of a PPD option (or of the dialog) and
// the value that the printer gets for it. The last argument is the value for an absent option.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pjl/value_table.hpp"

namespace kelm::pjl {

inline constexpr auto kMediaType = valueTable({{"Any", "AUTO"},
                                               {"Plain", "STANDARD"},
                                               {"IJPaper", "HC"},
                                               {"MattCoated", "HCMATTED"},
                                               {"HighQuality", "HIGHQUALITY2"},
                                               {"CardIJ", "POSTCARDJ"},
                                               {"IJLight", "LIGHT"},
                                               {"CrimpedPaper", "CRIMPED"}},
                                              "AUTO");
// "DualColor" and "Vermilion" have the same value on purpose.
inline constexpr auto kOutputMode = valueTable({{"Auto", "AUTO"},
                                                {"FiveColor", "FIVECOLOR"},
                                                {"Black", "GRAYSCALE"},
                                                {"Cyan", "CYAN"},
                                                {"Magenta", "MAGENTA"},
                                                {"Blue", "BLUE"},
                                                {"DualColor", "DUAL"},
                                                {"Red", "RED"},
                                                {"Vermilion", "DUAL"}},
                                               "AUTO");
inline constexpr auto kAutoSelect = valueTable({{"Auto", "ON"},
                                                {"FeedTray1", "OFF"},
                                                {"FeedTray2", "OFF"},
                                                {"FeedTray3", "OFF"},
                                                {"StandardTray", "OFF"},
                                                {"HighCapacityFeeder", "OFF"},
                                                {"ExternalFeeder", "OFF"}},
                                               "ON");
inline constexpr auto kMediaSource = valueTable({{"Auto", "AUTO"},
                                                 {"FeedTray1", "TRAY1"},
                                                 {"FeedTray2", "TRAY2"},
                                                 {"FeedTray3", "TRAY3"},
                                                 {"StandardTray", "STANDARD"},
                                                 {"HighCapacityFeeder", "HICAPACITYFEEDER"},
                                                 {"ExternalFeeder", "EXTERNALFEEDER"}},
                                                "AUTO");
inline constexpr auto kOutputMethod = valueTable({{"Print", "PRINT"},
                                                  {"SaveToFolder", "BOX"},
                                                  {"Form", "FORM"},
                                                  {"PrintAndSave", "PRINTANDBOX"}},
                                                 "PRINT");
inline constexpr auto kPageTray = valueTable({{"ON", "ON"}, {"OFF", "OFF"}}, "OFF");
inline constexpr auto kMultiUp = valueTable({{"OFF", "OFF"},
                                             {"2PagesLeftRight", "2PAGESLEFTRIGHT"},
                                             {"2PagesRightLeft", "2PAGESRIGHTLEFT"},
                                             {"4PagesLeftTopRight", "4PAGESLEFTTOPRIGHT"},
                                             {"4PagesLeftTopBottom", "4PAGESLEFTTOPBOTTOM"},
                                             {"4PagesRightTopLeft", "4PAGESRIGHTTOPLEFT"},
                                             {"4PagesRightTopBottom", "4PAGESRIGHTTOPBOTTOM"},
                                             {"8PagesLeftTopRight", "8PAGESLEFTTOPRIGHT"},
                                             {"8PagesLeftTopBottom", "8PAGESLEFTTOPBOTTOM"},
                                             {"8PagesRightTopLeft", "8PAGESRIGHTTOPLEFT"},
                                             {"8PagesRightTopBottom", "8PAGESRIGHTTOPBOTTOM"}},
                                            "OFF");
inline constexpr auto kMultiUpSinglePage =
    valueTable({{"OFF", "1"}, {"2Pages", "2"}, {"4Pages", "4"}, {"8Pages", "8"}}, "1");
inline constexpr auto kBooklet = valueTable({{"OFF", "OFF"},
                                             {"LeftBinding", "LEFTBINDING"},
                                             {"RightBinding", "RIGHTBINDING"},
                                             {"TopBinding", "TOPBINDING"}},
                                            "OFF");
// A switch as the maker's dialog sends it.
inline constexpr auto kDialogSwitch = valueTable({{"0", "OFF"}, {"1", "ON"}}, "OFF");
inline constexpr auto kTargetPage =
    valueTable({{"FullPage", "FULLPAGE"}, {"FirstPage", "1STPAGE"}}, "FULLPAGE");
inline constexpr auto kDateSpecify =
    valueTable({{"Today", "TODAY"}, {"Custom", "CUSTOM"}}, "TODAY");
// "OfficeDoc" is PHOTO and "PhotoDoc" is PHOTODOC on purpose.
inline constexpr auto kDitherType =
    valueTable({{"PhotoDoc", "PHOTODOC"}, {"OfficeDoc", "PHOTO"}, {"LineDoc", "TEXT"}}, "PHOTO");
inline constexpr auto kDensity = valueTable({{"Minus3", "-3"},
                                             {"Minus2", "-2"},
                                             {"Minus1", "-1"},
                                             {"Standard", "0"},
                                             {"Plus1", "1"},
                                             {"Plus2", "2"},
                                             {"Plus3", "3"}},
                                            "0");
// The firmware's table has five rows; two are empty.
inline constexpr auto kLineSmoothing = valueTable(
    {{"OFF", "OFF"}, {"Low", "LOW"}, {"High", "HIGH"}, {nullptr, nullptr}, {nullptr, nullptr}},
    "OFF");
inline constexpr auto kScreening =
    valueTable({{"ErrorDiff", "ERRORDIFF"}, {"Raster70", "RASTER70"}, {"Raster100", "RASTER100"}},
               "ERRORDIFF");
inline constexpr auto kRenderingIntent =
    valueTable({{"RelativeColorimetric", "RELATIVECOLORIMETRIC"},
                {"AbsoluteColorimetric", "ABSOLUTECOLORIMETRIC"},
                {"Perceptual", "PERCEPTUAL"},
                {"Saturation", "SATURATION"}},
               "PERCEPTUAL");
inline constexpr auto kMaxDrops = valueTable({{"Auto", "AUTO"},
                                              {"One", "1"},
                                              {"Two", "2"},
                                              {"Three", "3"},
                                              {"Four", "4"},
                                              {"Five", "5"},
                                              {"Six", "6"},
                                              {"Seven", "7"},
                                              {"Eight", "8"},
                                              {"Nine", "9"},
                                              {"Ten", "10"},
                                              {"Eleven", "11"}},
                                             "AUTO");
inline constexpr auto kGutter = valueTable({{"false", "OFF"}, {"true", "ON"}}, "OFF");
inline constexpr auto kPunchMode = valueTable(
    {{"OFF", "OFF"}, {"TwoHoles", "2HOLES"}, {"ThreeHoles", "3HOLES"}, {"FourHoles", "4HOLES"}},
    "OFF");
inline constexpr auto kFoldInnerOuter =
    valueTable({{"Inner", "INNER"}, {"Outer", "OUTER"}}, "INNER");
inline constexpr auto kFoldBinding =
    valueTable({{"LeftAndTop", "LEFTANDTOP"}, {"RightAndBottom", "RIGHTANDBOTTOM"}}, "LEFTANDTOP");
inline constexpr auto kBookletBinding =
    valueTable({{"OFF", "OFF"}, {"TwoFold", "2-FOLD"}, {"FoldStaple", "2-FOLDANDSTAPLE"}}, "OFF");
inline constexpr auto kBookletSplitting = valueTable(
    {{"OFF", "OFF"},    {"AUTO", "AUTO"},  {"1Sheet", "1"},   {"2Sheet", "2"},   {"3Sheet", "3"},
     {"4Sheet", "4"},   {"5Sheet", "5"},   {"6Sheet", "6"},   {"7Sheet", "7"},   {"8Sheet", "8"},
     {"9Sheet", "9"},   {"10Sheet", "10"}, {"11Sheet", "11"}, {"12Sheet", "12"}, {"13Sheet", "13"},
     {"14Sheet", "14"}, {"15Sheet", "15"}, {"16Sheet", "16"}, {"17Sheet", "17"}, {"18Sheet", "18"},
     {"19Sheet", "19"}, {"20Sheet", "20"}},
    "OFF");
inline constexpr auto kSwitch = valueTable({{"OFF", "OFF"}, {"ON", "ON"}}, "OFF");
inline constexpr auto kBookletCover =
    valueTable({{"OFF", "OFF"}, {"OnlyCover", "ONLYCOVER"}, {"ExceptCover", "EXCEPTCOVER"}}, "OFF");
inline constexpr auto kJog = valueTable({{"OFF", "OFF"}, {"Set", "SET"}, {"Job", "JOB"}}, "OFF");
inline constexpr auto kJobSepSheet = valueTable(
    {{"OFF", "OFF"}, {"BetweenSets", "BETWEENSETS"}, {"BetweenJobs", "BETWEENJOBS"}}, "OFF");
inline constexpr auto kJobSepSheetText =
    valueTable({{"OFF", "OFF"}, {"Number", "NUMBER"}, {"Character", "CHARACTER"}}, "OFF");
inline constexpr auto kOutputTray = valueTable({{"Auto", "AUTO"},
                                                {"FaceDown", "FACEDOWN"},
                                                {"Upper", "UPPER"},
                                                {"Stacker", "STACKER"},
                                                {"AutoStacker", "AUTOSTACKER"},
                                                {"WideStacker", "WIDESTACKER"},
                                                {"HighCapacityStacker", "HICAPACITYSTACKER"}},
                                               "AUTO");
// The default is BACK, the value of the choice ON.
inline constexpr auto kFormSurface = valueTable({{"OFF", "FRONT"}, {"ON", "BACK"}}, "BACK");
inline constexpr auto kPriorityLayer =
    valueTable({{"Overlay", "OVERLAY"}, {"Original", "ORIGINAL"}, {"Form", "FORM"}}, "OVERLAY");
inline constexpr auto kPrintSpeed =
    valueTable({{"OFF", "STANDARD"}, {"ON", "LOWSPEED"}}, "STANDARD");
inline constexpr auto kCarbonCopyPriority = valueTable({{"NoUse", "NOUSE"},
                                                        {"Standard", "STANDARD"},
                                                        {"HighCapacityFeeder", "HICAPACITYFEEDER"},
                                                        {"ExternalFeeder", "EXTERNALFEEDER"},
                                                        {"Tray1", "TRAY1"},
                                                        {"Tray2", "TRAY2"},
                                                        {"Tray3", "TRAY3"}},
                                                       "NOUSE");

// A switch as other dialogs send it, in either spelling.
inline constexpr auto kTrueFalse =
    valueTable({{"False", "OFF"}, {"True", "ON"}, {"false", "OFF"}, {"true", "ON"}}, "OFF");

inline constexpr auto kStampPosition = valueTable({{"TopLeft", "TOPLEFT"},
                                                   {"TopCenter", "TOPCENTER"},
                                                   {"TopRight", "TOPRIGHT"},
                                                   {"BottomLeft", "BOTTOMLEFT"},
                                                   {"BottomCenter", "BOTTOMCENTER"},
                                                   {"BottomRight", "BOTTOMRIGHT"}},
                                                  "TOPLEFT");
inline constexpr auto kRotate = valueTable({{"Auto", "AUTO"},
                                            {"degree0", "0"},
                                            {"degree90", "90"},
                                            {"degree180", "180"},
                                            {"degree270", "270"}},
                                           "AUTO");
// Only "HIGH_SPEED" has an underscore, on purpose.
inline constexpr auto kImageQuality = valueTable({{"Draft", "DRAFT"},
                                                  {"Standard", "STANDARD"},
                                                  {"Fine", "FINE"},
                                                  {"HiDensity", "HIDENSITY"},
                                                  {"CMYPrint", "CMYPRINT"},
                                                  {"HighSpeed", "HIGH_SPEED"}},
                                                 "STANDARD");
inline constexpr auto kBrightness = valueTable(
    {{"Lightest", "-2"}, {"Lighter", "-1"}, {"Standard", "0"}, {"Darker", "1"}, {"Darkest", "2"}},
    "0");
inline constexpr auto kContrast = valueTable(
    {{"Weakest", "-2"}, {"Weaker", "-1"}, {"Standard", "0"}, {"Stronger", "1"}, {"Strongest", "2"}},
    "0");
inline constexpr auto kBinding = valueTable(
    {{"Left", "LEFTBINDING"}, {"Right", "RIGHTBINDING"}, {"Upper", "TOPBINDING"}}, "LEFTBINDING");
inline constexpr auto kStapleMode = valueTable({{"OFF", "OFF"},
                                                {"OneStaple", "1STAPLE"},
                                                {"TwoStaple", "2STAPLES"},
                                                {"Left1", "1STAPLELEFT"},
                                                {"Right1", "1STAPLERIGHT"}},
                                               "OFF");
inline constexpr auto kFoldMode = valueTable({{"OFF", "OFF"},
                                              {"Fold2", "2FOLD"},
                                              {"FoldInner3", "3FOLDINNER"},
                                              {"FoldOuter3", "3FOLDOUTER"},
                                              {"ZFold", "ZFOLD"}},
                                             "OFF");
inline constexpr auto kFormPattern = valueTable({{"One", "ONE"},
                                                 {"DupLong", "DUPLONG"},
                                                 {"DupShort", "DUPSHORT"},
                                                 {"OneDupLong", "ONEDUPLONG"},
                                                 {"OneDupShort", "ONEDUPSHORT"}},
                                                "ONE");
inline constexpr auto kOutputFace =
    valueTable({{"FaceUp", "FACEUP"}, {"FaceDown", "FACEDOWN"}}, "FACEUP");

// Sheet trays: the default is TRAY1 for jobs from the maker's dialog and STANDARD for all others.
inline constexpr auto kCoverSheetTrayOfDialog =
    valueTable({{"Tray1", "TRAY1"},
                {"Tray2", "TRAY2"},
                {"Tray3", "TRAY3"},
                {"Standard", "STANDARD"},
                {"HighCapacityFeeder", "HICAPACITYFEEDER"}},
               "TRAY1");
inline constexpr auto kCoverSheetTray = valueTable(kCoverSheetTrayOfDialog.rows, "STANDARD");
inline constexpr auto kSheetTrayOfDialog = valueTable({{"Tray1", "TRAY1"},
                                                       {"Tray2", "TRAY2"},
                                                       {"Tray3", "TRAY3"},
                                                       {"Standard", "STANDARD"},
                                                       {"HighCapacityFeeder", "HICAPACITYFEEDER"},
                                                       {"ExternalFeeder", "EXTERNALFEEDER"}},
                                                      "TRAY1");
inline constexpr auto kSheetTray = valueTable(kSheetTrayOfDialog.rows, "STANDARD");

}  // namespace kelm::pjl
