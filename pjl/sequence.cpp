// The whole header of a job, in the order that the printer's firmware requires.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/sequence.hpp"

#include "pjl/finishing_variables.hpp"
#include "pjl/frame.hpp"
#include "pjl/paper_variables.hpp"
#include "pjl/quality_variables.hpp"

namespace kelm::pjl {
namespace {

constexpr bool kAlways = false;
constexpr bool kDialogOnly = true;

constexpr HeaderStep kHostAndPaper[] = {
    &Output_QVHOSTNAME,
    &Output_QVMANUALZOOM,
    &Output_QVZOOMRATE,
    &Output_MEDIATYPE,
    &Output_OUTPUTMODE,
    &Output_QTY,
    &Output_DUPLEX,
    &Output_BINDING,
    &Output_QVWAITAFTERPROOF,
    &Output_QVPAGESIZE,
    &Output_QVPAGESIZEWIDTH,
    &Output_QVPAGESIZEHEIGHT,
    &Output_ORIENTATION,
    &Output_PAPER,
    &Output_QVTARGETPAPERSIZEWIDTH,
    &Output_QVTARGETPAPERSIZEHEIGHT,
    &Output_AUTOSELECT,
    &Output_MEDIASOURCE,
    &Output_QVOUTPUTMETHOD,
    &Output_QVOUTPUTBOX,
};

constexpr HeaderStep kPageTrays[] = {
    &Output_QVPAGETRAY,       &Output_QVPAGETRAYSTANDARD, &Output_QVPAGETRAYTRAY1,
    &Output_QVPAGETRAYTRAY2,  &Output_QVPAGETRAYTRAY3,    &Output_QVPAGETRAYTRAYEXTERNALFEEDER,
    &Output_QVPAGETRAYREPEAT,
};

constexpr HeaderStep kLayout[] = {
    &Output_QVMULTIUP,
    &Output_QVMULTIUPSINGLEPAGE,
    &Output_QVBOOKLET,
};

constexpr HeaderStep kNumberAndDateStamps[] = {
    &Output_QVHEADERFOOTERPRINT, &Output_QVPAGENUMPRINT,     &Output_QVPAGENUMTRANSPARENT,
    &Output_QVPAGENUMSTARTNUM,   &Output_QVPAGENUMSTARTPAGE, &Output_QVPAGENUMPOSITION,
    &Output_QVSTAMPPAGEFONT,     &Output_QVSTAMPPAGESIZE,    &Output_QVDATEPRINT,
    &Output_QVDATETRANSPARENT,   &Output_QVDATETARGETPAGE,   &Output_QVDATESPECIFY,
    &Output_QVQVDateInfo,        &Output_QVDATEPOSITION,     &Output_QVSTAMPDATEFONT,
    &Output_QVSTAMPDATESIZE,
};

constexpr HeaderStep kImageShift[] = {
    &Output_QVIMAGESHIFT,      &Output_QVIMAGESHIFTFRONTV, &Output_QVIMAGESHIFTFRONTH,
    &Output_QVIMAGESHIFTBACKV, &Output_QVIMAGESHIFTBACKH,  &Output_QVROTATE,
};

constexpr HeaderStep kTextStamp[] = {
    &Output_QVTEXTPRINT,    &Output_QVTEXTTRANSPARENT, &Output_QVTEXTTARGETPAGE, &Output_QVTEXTInfo,
    &Output_QVTEXTPOSITION, &Output_QVSTAMPTEXTFONT,   &Output_QVSTAMPTEXTSIZE,
};

constexpr HeaderStep kQualityToIdentity[] = {
    &Output_QVDITHERTYPE,
    &Output_QVPRINTDENSITY,
    &Output_QVRESOLUTION,
    &Output_QVLINESMOOTHING,
    &Output_QVSCREENING,
    &Output_QVGAMMAADJUSTMENT,
    &Output_QVGCBRIGHTNESS,
    &Output_QVGCCONTRAST,
    &Output_QVGCCYAN,
    &Output_QVGCMAGENTA,
    &Output_QVGCYELLOW,
    &Output_QVGCBLACK,
    &Output_QVGCGRAY,
    &Output_QVBCODEAREA,
    &Output_QVBCODEAREASELECTION,
    &Output_QVBARCODEDENSITY,
    &Output_QVBARCODEPROOF,
    &Output_QVENVELOPEIMAGEPROCESSING,
    &Output_QVCOLORPROFILE,
    &Output_QVOUTPUTPROFILESELECTION,
    &Output_QVRENDERINGINTENT,
    &Output_QVMAXDROPS,
    &Output_QVBINDING,
    &Output_QVGUTTER,
    &Output_QVGUTTERDISTANCE,
    &Output_QVGUTTERAUTOREDUCING,
    &Output_QVSTAPLEMODE,
    &Output_QVPUNCHMODE,
    &Output_QVFOLDMODE,
    &Output_QVFOLDINNEROUTER,
    &Output_QVFOLDBINDING,
    &Output_QVBOOKLETBINDING,
    &Output_QVBOOKLETSPLITTING,
    &Output_QVBOOKLETGUTTER,
    &Output_QVBOOKLETGUTTERDISTANCE,
    &Output_QVBOOKLETGUTTERAUTOREDUCING,
    &Output_QVBOOKLETCOVER,
    &Output_QVWAITINGEXCEPTCOVER,
    &Output_QVBOOKLETCOVERSHEETTRAY,
    &Output_QVJOG,
    &Output_QVJOBSEPSHEET,
    &Output_QVJOBSEPSHEETTRAY,
    &Output_QVJOBSEPSHEETTEXT,
    &Output_QVCOVERSHEET,
    &Output_QVFRONTCOVERSHEET,
    &Output_QVFRONTCOVERSHEETTRAY,
    &Output_QVBACKCOVERSHEET,
    &Output_QVBACKCOVERSHEETTRAY,
    &Output_QVOUTPUTTRAY,
    &Output_QVOUTPUTFACE,
    &Output_QVCONTINUOUSOUTPUT,
    &Output_QVREVERSEORDER,
    &Output_QVFORM,
    &Output_QVFORMPATTERN,
    &Output_QVFORMSURFACE,
    &Output_QVFORMSEPARATE,
    &Output_QVFORMSELECT1,
    &Output_QVFORMSELECT2,
    &Output_QVPRIORITY_LAYER,
    &Output_QVOWNERNAME,
    &Output_USERNAME,
    &Output_QVJOBNAME,
    &Output_JOBNAME,
    &Output_QVSECRETNUM,
    &Output_PASSWORD,
};

constexpr HeaderStep kHideJob[] = {
    &Output_QVHIDEJOB,
};

constexpr HeaderStep kCommentToCarbonCopy[] = {
    &Output_QVJOBCOMMENT,          &Output_QVPRINTSPEED,          &Output_QVCARBONCOPY,
    &Output_QVCARBONCOPYPRIORITY1, &Output_QVCARBONCOPYPRIORITY2, &Output_QVCARBONCOPYPRIORITY3,
    &Output_QVCARBONCOPYPRIORITY4,
};

constexpr HeaderSection kHeader[] = {
    {kAlways, kHostAndPaper},
    {kDialogOnly, kPageTrays},
    {kAlways, kLayout},
    {kDialogOnly, kNumberAndDateStamps},
    {kAlways, kImageShift},
    {kDialogOnly, kTextStamp},
    {kAlways, kQualityToIdentity},
    {kDialogOnly, kHideJob},
    {kAlways, kCommentToCarbonCopy},
};

constexpr FrameWriter kFrame[] = {
    Output_Header,
    Output_Comment,
    Output_QVPJLVERSION,
    Output_QVPJLIDENTIFIER,
    Output_QVRIPCONTROLFLAG,
    Output_QVSOFTWARENAME,
    Output_QVSOFTWAREVERSION,
};

}  // namespace

std::span<const FrameWriter> frameBeforeVariables() { return kFrame; }

std::span<const HeaderSection> headerSections() { return kHeader; }

int OutputPJL(std::FILE* stream, job::PrintJobData& job) {
  for (const FrameWriter write : kFrame) write(stream);
  forEachStep(job.isPrintPDE, [&](const HeaderStep& step) { writeStep(stream, job, step); });
  return Output_EnterPostScript(stream);
}

}  // namespace kelm::pjl
