// The job's PostScript, copied to the printer with its feature sections rewritten.
// SPDX-License-Identifier: Apache-2.0
#include "filter/copy_loop.hpp"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "job/custom_paper.hpp"
#include "job/diagnostics.hpp"
#include "psrewrite/features.hpp"
#include "psrewrite/line_rewriters.hpp"
#include "psrewrite/orientation.hpp"
#include "psrewrite/settled_sections.hpp"

namespace kelm::filter {
namespace {

using psrewrite::JobStream;
using psrewrite::LineBuffer;

constexpr std::int32_t kFormSelect1Code = psrewrite::outputQVFormSelect1.code;

const char* find(const char* begin, const char* end, char wanted) {
  return static_cast<const char*>(
      std::memchr(begin, wanted, static_cast<std::size_t>(end - begin)));
}

// Whether the text contains "QV", with which every keyword of the printer begins. All binary data
// goes through this search, so it must be quick.
bool namesKeyword(const char* begin, const char* end) {
  for (; (begin = find(begin, end, 'Q')) != nullptr; ++begin) {
    if (begin + 1 < end && begin[1] == 'V') return true;
  }
  return false;
}

bool contains(const char* begin, const char* end, std::string_view wanted) {
  const auto size = static_cast<std::size_t>(end - begin);
  return memmem(begin, size, wanted.data(), wanted.size()) != nullptr;
}

// A line, or the one after it, changes only if the line names a keyword of the printer and opens a
// feature section or chooses the output face.
bool mayConcernPrinter(const char* line, const char* end) {
  return namesKeyword(line, end) &&
         (contains(line, end, "BeginFeature") || contains(line, end, "QVOutputFace FaceUp"));
}

// The lines in which CUPS asks for copies: a cheap test that lets few others through.
bool mayAskForCopies(const char* line, const char* end) {
  const std::string_view text(line, static_cast<std::size_t>(end - line));
  return text.starts_with("RBI") || text.starts_with("%Requirements");
}

// The end of the line (at most LineBuffer::kSize bytes) that begins at `line`; null when the window
// ends before it does.
const char* endOfLine(const char* line, const char* windowEnd) {
  const bool whole = windowEnd - line >= static_cast<std::ptrdiff_t>(LineBuffer::kSize);
  const char* limit = whole ? line + LineBuffer::kSize : windowEnd;
  const char* lineFeed = find(line, limit, '\n');
  if (lineFeed != nullptr) return lineFeed + 1;
  return whole ? limit : nullptr;
}

// The length of the beginning of the window that is passed on unexamined: up to the first "%" whose
// line may concern the printer or CUPS' copies, or does not end in the window. `found` says whether
// there is such a "%".
std::size_t plainRun(std::span<const char> window, bool copies, bool& found) {
  const char* const end = window.data() + window.size();
  const char* next = window.data();
  const char* percent = nullptr;
  while ((percent = find(next, end, '%')) != nullptr) {
    const char* const line = percent + 1;
    next = endOfLine(line, end);
    if (next == nullptr || mayConcernPrinter(line, next) ||
        (copies && mayAskForCopies(line, next))) {
      found = true;
      return static_cast<std::size_t>(percent - window.data());
    }
  }
  found = false;
  return window.size();
}

// Passes the input on up to the next "%" whose line must be examined, and consumes that "%"; false
// at the end of the input.
bool passRuns(JobStream& stream, bool copies) {
  for (bool found = false; !stream.window().empty();) {
    stream.pass(plainRun(stream.window(), copies, found));
    if (!found) continue;
    job::LogFile2Run("%");
    stream.consume(1);
    return true;
  }
  return false;
}

void writeLine(JobStream& stream, const LineBuffer& line, std::int32_t length) {
  stream.write({line.text(), static_cast<std::size_t>(length)});
}

// Sets the orientation comment from the custom paper's shape, else from the job's option.
std::int32_t followOrientation(LineBuffer& line, std::int32_t length,
                               const job::PrintJobData& job) {
  std::int32_t newLength = 0;
  if (!job::customSizeFlg) {
    job::LogMessage("20160929 FALSE", true);
    newLength = psrewrite::replaceOrientation(line, &job);
  } else {
    const bool portrait = job::widthLength <= job::heighLength;
    job::LogMessage(portrait ? "20160929 Por" : "20160929 Lan", true);
    newLength = psrewrite::replaceCustomOrientation(line, portrait);
  }
  return newLength >= 1 ? newLength : length;
}

// Writes a line of `length` bytes without its last byte (the line feed), and with "FaceUp" changed
// to "FaceDown".
void writeFaceDown(JobStream& stream, LineBuffer& line, std::int32_t length) {
  line.terminate(static_cast<std::size_t>(std::max(length - 1, 0)));
  psrewrite::outputFeatureByCustomSizeValueTitle(stream, line.text(), "FaceUp", "FaceDown");
}

// Changes a face-up choice and the line after it to face down, unless the job's output tray decides
// the face. Afterwards `line` holds the line that follows; the result is its length.
std::int32_t suppressFaceUp(JobStream& stream, LineBuffer& line, std::int32_t length,
                            const job::PrintJobData& job) {
  if (job.keepOutputFace != 0 || !line.contains("QVOutputFace FaceUp")) return length;
  writeFaceDown(stream, line, length);
  line.clear();
  writeFaceDown(stream, line, readLine(stream, line.data(), LineBuffer::kSize));
  line.clear();
  return readLine(stream, line.data(), LineBuffer::kSize);
}

// Passes the section that `line` opens to its writer.
void rewriteFeature(JobStream& stream, LineBuffer& line, job::PrintJobData& job) {
  const std::int32_t code = psrewrite::getFeature(line.text());
  job::LogMessage(code == 0 ? "Not Feature found" : "Feature found", true);
  job::LogMessage(line.text(), true);
  if (code == kFormSelect1Code) job::LogMessage("AdvancedQVFormSelect1Feature start", true);
  const psrewrite::FeatureWriter writer = psrewrite::featureWriter(code);
  const bool replaced = writer && writer(stream, line, job);
  if (code == kFormSelect1Code) job::LogMessage("AdvancedQVFormSelect1Feature end", true);
  job::LogMessage(replaced ? "Feature replaced" : "Feature not replaced", true);
  job::LogMessage("Get C done", true);
}

// For a section in which CUPS wrote another choice than the job's: writes its opening line with the
// job's choice, and its code. The rest of the section of a custom text is left to its writer.
void writeOverridden(JobStream& stream, LineBuffer& line, const job::SectionOverride& section,
                     job::PrintJobData& job) {
  writeLine(stream, line, psrewrite::nameChoice(line, section));
  LineBuffer next;
  if (!psrewrite::writeOverride(stream, next, section)) rewriteFeature(stream, line, job);
}

// Handles one line, after its "%", and the further lines of its section. The "%" was consumed but
// not written.
void copyLine(JobStream& stream, LineBuffer& line, job::PrintJobData& job) {
  job::LogMessage("After continue", true);
  line.clear();
  job::LogMessage("Checking for feature", true);
  std::int32_t length = readLine(stream, line.data(), LineBuffer::kSize);
  if (length > 0 && psrewrite::asksForCopies(line, job)) return dropCopies(stream, line);
  stream.write("%");
  if (length < 1) return;
  if (const auto* section = psrewrite::sectionOverride(line, job)) {
    return writeOverridden(stream, line, *section, job);
  }
  length = followOrientation(line, length, job);
  length = suppressFaceUp(stream, line, length, job);
  writeLine(stream, line, length);
  line.terminate(std::min(static_cast<std::size_t>(length), LineBuffer::kSize - 1));
  rewriteFeature(stream, line, job);
}

}  // namespace

void copyPostScript(JobStream& stream, job::PrintJobData& job) {
  LineBuffer line;
  while (passRuns(stream, job.copiesOfHeader != 0)) copyLine(stream, line, job);
}

}  // namespace kelm::filter
