// The variables of finishing, output and the job's identity.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pjl/finishing_writers.hpp"
#include "pjl/value_tables.hpp"
#include "pjl/variables.hpp"

namespace kelm::pjl {

// clang-format off
inline constexpr DialogOrPlain Output_QVBINDING{
    TableVariable{"QVBindingValue", "QVBINDING", kBinding},
    TableVariable{"QVBinding", "QVBINDING", kBinding}};
inline constexpr TableVariable Output_QVGUTTER{"QVGutter", "QVGUTTER", kGutter};
inline constexpr DialogOrPlain Output_QVGUTTERDISTANCE{
    CopyVariable{"QVGutterDistanceValue100", "QVGUTTERDISTANCE", "0"},
    CopyVariable{"QVGutterDistance", "QVGUTTERDISTANCE", "0"}};
inline constexpr DialogOrPlain Output_QVGUTTERAUTOREDUCING{
    TableVariable{"QVGutterAutoReducingValue", "QVGUTTERAUTOREDUCING", kDialogSwitch},
    TableVariable{"QVGutterAutoReducing", "QVGUTTERAUTOREDUCING", kTrueFalse}};
inline constexpr TableVariable Output_QVSTAPLEMODE{"QVStapleMode", "QVSTAPLEMODE", kStapleMode};
inline constexpr TableVariable Output_QVPUNCHMODE{"QVPunchMode", "QVPUNCHMODE", kPunchMode};
inline constexpr TableVariable Output_QVFOLDMODE{"QVFoldMode", "QVFOLDMODE", kFoldMode};
inline constexpr TableVariable Output_QVFOLDINNEROUTER{"QVFoldInnerOuter", "QVFOLDINNEROUTER", kFoldInnerOuter};
inline constexpr TableVariable Output_QVFOLDBINDING{"QVFoldBinding", "QVFOLDBINDING", kFoldBinding};
inline constexpr TableVariable Output_QVBOOKLETBINDING{"QVBookletBinding", "QVBOOKLETBINDING", kBookletBinding};
inline constexpr TableVariable Output_QVBOOKLETSPLITTING{"QVBookletSplitting", "QVBOOKLETSPLITTING", kBookletSplitting};
inline constexpr DialogOrPlain Output_QVBOOKLETGUTTER{
    TableVariable{"QVBookletGutterValue", "QVBOOKLETGUTTER", kDialogSwitch},
    TableVariable{"QVBookletGutter", "QVBOOKLETGUTTER", kTrueFalse}};
inline constexpr DialogOrPlain Output_QVBOOKLETGUTTERDISTANCE{
    CopyVariable{"QVBookletGutterDistanceValue100", "QVBOOKLETGUTTERDISTANCE", "0"},
    CopyVariable{"QVBookletGutterDistance", "QVBOOKLETGUTTERDISTANCE", "0"}};
inline constexpr TableVariable Output_QVBOOKLETGUTTERAUTOREDUCING{"QVBookletGutterAutoReducing", "QVBOOKLETGUTTERAUTOREDUCING", kSwitch};
inline constexpr TableVariable Output_QVBOOKLETCOVER{"QVBookletCover", "QVBOOKLETCOVER", kBookletCover};
inline constexpr TableVariable Output_QVWAITINGEXCEPTCOVER{"QVWaitingExceptCover", "QVWAITINGEXCEPTCOVER", kSwitch};
inline constexpr DialogOrPlain Output_QVBOOKLETCOVERSHEETTRAY{
    TableVariable{"QVBookletCoverSheetTray", "QVBOOKLETCOVERSHEETTRAY", kCoverSheetTrayOfDialog},
    TableVariable{"QVBookletCoverSheetTray", "QVBOOKLETCOVERSHEETTRAY", kCoverSheetTray}};
inline constexpr TableVariable Output_QVJOG{"QVJog", "QVJOG", kJog};
inline constexpr TableVariable Output_QVJOBSEPSHEET{"QVJobSepSheet", "QVJOBSEPSHEET", kJobSepSheet};
inline constexpr DialogOrPlain Output_QVJOBSEPSHEETTRAY{
    TableVariable{"QVJobSepSheetTray", "QVJOBSEPSHEETTRAY", kSheetTrayOfDialog},
    TableVariable{"QVJobSepSheetTray", "QVJOBSEPSHEETTRAY", kSheetTray}};
inline constexpr TableVariable Output_QVJOBSEPSHEETTEXT{"QVJobSepSheetText", "QVJOBSEPSHEETTEXT", kJobSepSheetText};
inline constexpr TableVariable Output_QVCOVERSHEET{"QVCoverSheet", "QVCOVERSHEET", kSwitch};
inline constexpr TableVariable Output_QVFRONTCOVERSHEET{"QVFrontCoverSheet", "QVFRONTCOVERSHEET", kSwitch};
inline constexpr DialogOrPlain Output_QVFRONTCOVERSHEETTRAY{
    TableVariable{"QVFrontCoverSheetTray", "QVFRONTCOVERSHEETTRAY", kSheetTrayOfDialog},
    TableVariable{"QVFrontCoverSheetTray", "QVFRONTCOVERSHEETTRAY", kSheetTray}};
inline constexpr TableVariable Output_QVBACKCOVERSHEET{"QVBackCoverSheet", "QVBACKCOVERSHEET", kSwitch};
inline constexpr DialogOrPlain Output_QVBACKCOVERSHEETTRAY{
    TableVariable{"QVBackCoverSheetTray", "QVBACKCOVERSHEETTRAY", kSheetTrayOfDialog},
    TableVariable{"QVBackCoverSheetTray", "QVBACKCOVERSHEETTRAY", kSheetTray}};
inline constexpr TableVariable Output_QVOUTPUTTRAY{"QVOutputTray", "QVOUTPUTTRAY", kOutputTray};
inline constexpr OwnVariable Output_QVOUTPUTFACE{
    "QVOUTPUTFACE", writeOutputFaceLine, "QVOutputTray, QVOutputFace", "QVOutputTray, QVOutputFace",
    "FaceUp: FACEUP, FaceDown: FACEDOWN; always FACEDOWN when QVOutputTray is absent, Auto or FaceDown", "FACEUP with any other QVOutputTray, else FACEDOWN"};
inline constexpr TableVariable Output_QVCONTINUOUSOUTPUT{"QVContinuousOutput", "QVCONTINUOUSOUTPUT", kSwitch};
inline constexpr TableVariable Output_QVREVERSEORDER{"QVReverseOrder", "QVREVERSEORDER", kSwitch};
inline constexpr TableVariable Output_QVFORM{"QVForm", "QVFORM", kSwitch};
inline constexpr TableVariable Output_QVFORMPATTERN{"QVFormPattern", "QVFORMPATTERN", kFormPattern};
inline constexpr TableVariable Output_QVFORMSURFACE{"QVFormSurface", "QVFORMSURFACE", kFormSurface};
inline constexpr TableVariable Output_QVFORMSEPARATE{"QVFormSeparate", "QVFORMSEPARATE", kSwitch};
inline constexpr OwnVariable Output_QVFORMSELECT1{
    "QVFORMSELECT1", writeFormSelect1Line, "QVFormSelect1StringValueUTF8", "QVFormSelect1",
    "as it is (dialog); the form's tag, or the custom value, in hex (plain)", "empty"};
inline constexpr OwnVariable Output_QVFORMSELECT2{
    "QVFORMSELECT2", writeFormSelect2Line, "QVFormSelect2StringValueUTF8", "QVFormSelect2",
    "as it is (dialog); the form's tag, or the custom value, in hex (plain)", "empty"};
inline constexpr TableVariable Output_QVPRIORITY_LAYER{"QVPriorityLayer", "QVPRIORITYLAYER", kPriorityLayer};

// The job's identity.
inline constexpr OwnVariable Output_QVOWNERNAME{
    "QVOWNERNAME", writeOwnerSwitchLine, "QVOwnerName", "QVOwnerNameInfo",
    "OFF: OFF, ON: ON (dialog); ON for a valid custom value, else OFF (plain)", "OFF"};
inline constexpr OwnVariable Output_USERNAME{
    "USERNAME", writeUserNameLine, "QVOwnerNameTextValueUTF8", "QVOwnerNameInfo",
    "as it is (dialog); the custom value in hex (plain)", "the console user's name in hex",
    Fallback::kComputer};
inline constexpr OwnVariable Output_QVJOBNAME{
    "QVJOBNAME", writeJobNameSwitchLine, "QVJobName", "QVJobNameInfo",
    "OFF: OFF, ON: ON (dialog); ON for a valid custom value, else OFF (plain)", "OFF"};
inline constexpr OwnVariable Output_JOBNAME{
    "JOBNAME", writeJobNameLine, "QVJobName, QVJobNameTextValueUTF8", "QVJobNameInfo",
    "for QVJobName ON the text as it is, the title in hex when it is empty (dialog); the custom value in hex (plain)",
    "the job's title in hex; empty for QVJobName ON without a text (dialog)",
    Fallback::kJobTitle};
inline constexpr OwnVariable Output_QVSECRETNUM{
    "QVSECRETNUM", writeSecretNumSwitchLine, "QVSecretNum", "QVSecretNumInfo",
    "OFF: OFF, ON: ON (dialog); ON for a valid custom value, else OFF (plain)", "OFF"};
inline constexpr OwnVariable Output_PASSWORD{
    "PASSWORD", writePasswordLine, "QVSecretNumTextValue", "QVSecretNumInfo",
    "as it is (dialog); the custom value in clear (plain)", "empty"};
inline constexpr TableVariable Output_QVHIDEJOB{"QVHideJob", "QVHIDEJOB", kSwitch};  // dialog only
inline constexpr OwnVariable Output_QVJOBCOMMENT{
    "QVJOBCOMMENT", writeJobCommentLine, "QVJobCommentTextValueUTF8", "QVJobComment",
    "as it is (dialog); the custom value in hex (plain)", "empty"};

inline constexpr TableVariable Output_QVPRINTSPEED{"QVPrintSpeed", "QVPRINTSPEED", kPrintSpeed};
inline constexpr TableVariable Output_QVCARBONCOPY{"QVCarbonCopy", "QVCARBONCOPY", kSwitch};
inline constexpr TableVariable Output_QVCARBONCOPYPRIORITY1{"QVCarbonCopyPriority1", "QVCARBONCOPYPRIORITY1", kCarbonCopyPriority};
inline constexpr TableVariable Output_QVCARBONCOPYPRIORITY2{"QVCarbonCopyPriority2", "QVCARBONCOPYPRIORITY2", kCarbonCopyPriority};
inline constexpr TableVariable Output_QVCARBONCOPYPRIORITY3{"QVCarbonCopyPriority3", "QVCARBONCOPYPRIORITY3", kCarbonCopyPriority};
inline constexpr TableVariable Output_QVCARBONCOPYPRIORITY4{"QVCarbonCopyPriority4", "QVCARBONCOPYPRIORITY4", kCarbonCopyPriority};
// clang-format on

}  // namespace kelm::pjl
