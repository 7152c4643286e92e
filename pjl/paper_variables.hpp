// The variables of host, zoom, paper, copies, duplex, trays and output method.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pjl/paper_tables.hpp"
#include "pjl/paper_writers.hpp"
#include "pjl/value_tables.hpp"
#include "pjl/variables.hpp"

namespace kelm::pjl {

// clang-format off
inline constexpr OwnVariable Output_QVHOSTNAME{
    "QVHOSTNAME", writeHostNameLine,
    "QVHostNameValue", "QVHostNameValue", "in hex; no line for an empty name", "the computer's name in hex; no line when it is empty",
    Fallback::kComputer, true};
inline constexpr OwnVariable Output_QVMANUALZOOM{
    "QVMANUALZOOM", writeManualZoomLine,
    "QVZoomRateValue", "QVZoomRate", "0: OFF, 1: ON (dialog); OFF: OFF, anything else: ON (plain)", "OFF"};
inline constexpr OwnVariable Output_QVZOOMRATE{
    "QVZOOMRATE", writeZoomRateLine,
    "QVZoomRateTextValue", "QVZoomRate", "as it is; OFF: 100 (plain)", "no line (dialog), 100 (plain)", Fallback::kRow, true};
inline constexpr TableVariable Output_MEDIATYPE{"QVMediaType", "MEDIATYPE", kMediaType};
inline constexpr TableVariable Output_OUTPUTMODE{"QVOutputMode", "QVOUTPUTMODE", kOutputMode};
inline constexpr OwnVariable Output_QTY{
    "QTY or COPIES", writeCopiesLine,
    "com.apple.print.PrintSettings.PMCopies..n., QVCollateValue", "com.apple.print.PrintSettings.PMCopies..n., QVCollate",
    "as it is; QTY when collated: QVCollateValue is 1 (dialog), QVCollate is not False or false (plain); else COPIES", "1"};
inline constexpr OwnVariable Output_DUPLEX{
    "DUPLEX", writeDuplexLine, "QVDuplex, QVBookletBinding", "QVDuplex, QVBookletBinding",
    "OFF: OFF, LongEdge: ON, ShortEdge: ON; if the job has QVDuplex, a booklet binding other than OFF changes it to ShortEdge", "the value of the PPD's default choice, OFF when it is none of these; ON without a PPD or without the option in it",
    Fallback::kPpdDefault};
inline constexpr OwnVariable Output_BINDING{
    "BINDING", writeBindingEdgeLine, "QVDuplex, QVBookletBinding", "QVDuplex, QVBookletBinding",
    "OFF: OFF, LongEdge: LONGEDGE, ShortEdge: SHORTEDGE; for booklets see DUPLEX", "the value of the PPD's default choice, OFF when it is none of these; LONGEDGE without a PPD or without the option in it",
    Fallback::kPpdDefault};
inline constexpr DialogOrPlain Output_QVWAITAFTERPROOF{
    TableVariable{"QVWaitAfterProofValue", "QVWAITAFTERPROOF", kDialogSwitch},
    TableVariable{"QVWaitAfterProof", "QVWAITAFTERPROOF", kTrueFalse}};
inline constexpr OwnVariable Output_QVPAGESIZE{
    "QVPAGESIZE", writePageSizeLine,
    "com.apple.print.PageToPaperMappingMediaName, media", "com.apple.print.PageToPaperMappingMediaName, media",
    "the paper's name; CUSTOMSIZE when the text contains Custom", "the same from media; A4 without media"};
inline constexpr OwnVariable Output_QVPAGESIZEWIDTH{
    "QVPAGESIZEWIDTH", writePageWidthLine,
    "QVPAGESizeWidthValue100, media", "com.apple.print.PageToPaperMappingMediaName, QVPAGESizeWidthValue100, media",
    "1/100 mm; empty for an unknown paper; no line for a mapped custom paper whose name lacks a full stop, an x or text after its first x (plain)", "the width of media; 21000 without media",
    Fallback::kRow, true};
inline constexpr OwnVariable Output_QVPAGESIZEHEIGHT{
    "QVPAGESIZEHEIGHT", writePageHeightLine,
    "QVPAGESizeHeightValue100, media", "com.apple.print.PageToPaperMappingMediaName, QVPAGESizeHeightValue100, media",
    "1/100 mm; empty for an unknown paper; no line for a mapped custom paper whose name lacks a full stop, an x or text after its first x (plain)", "the height of media; 29700 without media",
    Fallback::kRow, true};
inline constexpr OrientationRow kOrientations[] = {{"0", "Portrait", "PORTRAIT"},
                                                   {"1", "Landscape", "LANDSCAPE"}};
inline constexpr OrientationVariable Output_ORIENTATION{"QVOrientation", "ORIENTATION", kOrientations, 0};
inline constexpr OwnVariable Output_PAPER{
    "PAPER", writeTargetPaperLine, "QVTargetPaperSize", "QVTargetPaperSize",
    "the paper's name, except for tabloid; AUTO when the text contains SameAsOriginal, else CUSTOMSIZE when it contains Custom", "AUTO"};
inline constexpr OwnVariable Output_QVTARGETPAPERSIZEWIDTH{
    "QVTARGETPAPERSIZEWIDTH", writeTargetWidthLine,
    "QVTargetPaperSizeWidthValue100, media", "QVTargetPaperSize unless it contains SameAsOriginal, com.apple.print.PageToPaperMappingMediaName, media",
    "1/100 mm; empty for an unknown or custom target; 0 for a side that a mapped custom paper does not name (plain)", "the width of media; 21000 without media"};
inline constexpr OwnVariable Output_QVTARGETPAPERSIZEHEIGHT{
    "QVTARGETPAPERSIZEHEIGHT", writeTargetHeightLine,
    "QVTargetPaperSizeHeightValue100, media", "QVTargetPaperSize unless it contains SameAsOriginal, com.apple.print.PageToPaperMappingMediaName, media",
    "1/100 mm; empty for an unknown or custom target; 0 for a side that a mapped custom paper does not name (plain)", "the height of media; 29700 without media"};
inline constexpr TableVariable Output_AUTOSELECT{"QVInputSlot", "AUTOSELECT", kAutoSelect};
inline constexpr TableVariable Output_MEDIASOURCE{"QVInputSlot", "MEDIASOURCE", kMediaSource};
inline constexpr TableVariable Output_QVOUTPUTMETHOD{"QVOutputMethod", "QVOUTPUTMETHOD", kOutputMethod};
inline constexpr DialogOrPlain Output_QVOUTPUTBOX{
    UpperCaseVariable{"QVPageOutputBoxPSValue", "QVOUTPUTBOX", ""},
    UpperCaseVariable{"QVOutputBox", "QVOUTPUTBOX", "SHAREDBOX1"}};

// Page trays, for jobs of the maker's dialog only.
inline constexpr TableVariable Output_QVPAGETRAY{"QVPageTray", "QVPAGETRAY", kPageTray};
inline constexpr CopyVariable Output_QVPAGETRAYSTANDARD{"QVPageTrayStandardTrayValue", "QVPAGETRAYSTANDARD", ""};
inline constexpr CopyVariable Output_QVPAGETRAYTRAY1{"QVPageTrayTray1Value", "QVPAGETRAYTRAY1", ""};
inline constexpr CopyVariable Output_QVPAGETRAYTRAY2{"QVPageTrayTray2Value", "QVPAGETRAYTRAY2", ""};
inline constexpr CopyVariable Output_QVPAGETRAYTRAY3{"QVPageTrayTray3Value", "QVPAGETRAYTRAY3", ""};
inline constexpr CopyVariable Output_QVPAGETRAYTRAYEXTERNALFEEDER{"QVPageTrayExternalFeederValue", "QVPAGETRAYEXTERNALFEEDER", ""};
inline constexpr OwnVariable Output_QVPAGETRAYREPEAT{
    "QVPAGETRAYREPEAT", writePageTrayRepeatLine,
    "QVPageTrayRepeatButtonValue, QVPageTrayRepeatTextValue", "", "the text; 0 when the button's value contains 0", "0"};
// clang-format on

}  // namespace kelm::pjl
