// The frame of the header: its fixed lines.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/frame.hpp"

#include <string_view>

namespace kelm::pjl {
namespace {

// Returns what putc(3) returns for the LF.
int writeFrameLine(std::FILE* stream, std::string_view line) {
  std::fwrite(line.data(), 1, line.size(), stream);
  return std::putc('\n', stream);
}

}  // namespace

void Output_Header(std::FILE* stream) { writeFrameLine(stream, "\x1B%-12345X@PJL"); }

void Output_Comment(std::FILE* stream) {
  writeFrameLine(stream, "@PJL COMMENT KELM Printer Driver");
}

void Output_QVPJLVERSION(std::FILE* stream) {
  writeFrameLine(stream, "@PJL SET QVPJLVERSION=2.00");
}

void Output_QVPJLIDENTIFIER(std::FILE* stream) {
  writeFrameLine(stream, "@PJL SET QVPJLIDENTIFIER=KELM_IJ_PJL");
}

void Output_QVRIPCONTROLFLAG(std::FILE* stream) {
  writeFrameLine(stream, "@PJL SET QVRIPCONTROLFLAG=13");
}

void Output_QVSOFTWARENAME(std::FILE* stream) {
  writeFrameLine(stream, "@PJL SET QVSOFTWARENAME=KELM MAC Postscript Printer Driver");
}

// Part of the wire format, not the version of this package.
void Output_QVSOFTWAREVERSION(std::FILE* stream) {
  writeFrameLine(stream, "@PJL SET QVSOFTWAREVERSION=1.5.000");
}

int Output_EnterPostScript(std::FILE* stream) {
  return writeFrameLine(stream, "@PJL ENTER LANGUAGE=POSTSCRIPT");
}

}  // namespace kelm::pjl
