// The job's PostScript, copied to the printer with its feature sections rewritten.
#include "filter/copy_loop.hpp"

#include <algorithm>
#include <cstring>

#include "filter/diagnostics.hpp"
#include "psrewrite/features.hpp"

namespace kelm::filter {
namespace {

using psrewrite::JobStream;
using psrewrite::LineBuffer;

const char* find(const char* begin, const char* end, char wanted) {
  return static_cast<const char*>(
      std::memchr(begin, wanted, static_cast<std::size_t>(end - begin)));
}

// Every line that is ever changed, or followed by a line that is changed, names a keyword of the
// printer: "QV" and more.
bool mayConcernPrinter(const char* line, const char* end) {
  for (; (line = find(line, end, 'Q')) != nullptr; ++line) {
    if (line + 1 < end && line[1] == 'V') return true;
  }
  return false;
}

// Behind the line (at most LineBuffer::kSize bytes) that begins at `line`; null when the window
// ends before it.
const char* endOfLine(const char* line, const char* windowEnd) {
  const bool whole = windowEnd - line >= static_cast<std::ptrdiff_t>(LineBuffer::kSize);
  const char* limit = whole ? line + LineBuffer::kSize : windowEnd;
  const char* lineFeed = find(line, limit, '\n');
  if (lineFeed != nullptr) return lineFeed + 1;
  return whole ? limit : nullptr;
}

// The length of the front of the window that passes without a look: up to and with the first "%"
// whose line may concern the printer or is not whole in the window. `found` says whether there is
// such a "%".
std::size_t plainRun(std::span<const char> window, bool& found) {
  const char* const end = window.data() + window.size();
  const char* next = window.data();
  const char* percent = nullptr;
  while ((percent = find(next, end, '%')) != nullptr) {
    const char* const line = percent + 1;
    next = endOfLine(line, end);
    if (next == nullptr || mayConcernPrinter(line, next)) {
      found = true;
      return static_cast<std::size_t>(line - window.data());
    }
  }
  found = false;
  return window.size();
}

// Passes the input on up to and with the next "%" whose line must be looked at; false at the end.
bool passRuns(JobStream& stream) {
  for (bool found = false; !stream.window().empty();) {
    stream.pass(plainRun(stream.window(), found));
    if (found) return true;
  }
  return false;
}

// The same one character at a time, every character going to the diagnostic files too, up to and
// with the next "%".
bool passLoggedCharacters(JobStream& stream) {
  int character = 0;
  while ((character = stream.get()) != EOF) {
    std::fputc(character, stream.output());
    LogFile2Message(character);
    LogFile3Message(character);
    if (character == '%') return true;
  }
  return false;
}

bool passToNextLine(JobStream& stream) {
  return fileOutPutFlag ? passLoggedCharacters(stream) : passRuns(stream);
}

void writeLine(JobStream& stream, const LineBuffer& line, std::int32_t length) {
  const std::string_view bytes(line.text(), static_cast<std::size_t>(length));
  stream.write(bytes);
  for (std::size_t i = 0; fileOutPutFlag && i < bytes.size(); ++i) {
    LogFile3Message(static_cast<unsigned char>(bytes[i]));
  }
}

// Looks at one line, behind its "%", and at the lines that its section brings.
void copyLine(JobStream& stream, LineBuffer& line) {
  LogMessage("After continue", true);
  line.clear();
  LogMessage("Checking for feature", true);
  const std::int32_t length = readLine(stream, line.data(), LineBuffer::kSize);
  if (length < 1) return;
  writeLine(stream, line, length);
  line.terminate(std::min(static_cast<std::size_t>(length), LineBuffer::kSize - 1));
  if (psrewrite::getFeature(line.text()) == 0) {
    LogMessage("Not Feature found", true);
  } else {
    LogMessage("Feature found", true);
  }
  LogMessage(line.text(), true);
  LogMessage("Feature not replaced", true);
  LogMessage("Get C done", true);
}

}  // namespace

void copyPostScript(JobStream& stream, PrintJobData& /*job*/) {
  LineBuffer line;
  while (passToNextLine(stream)) copyLine(stream, line);
}

}  // namespace kelm::filter
