// The frame of the header: the fixed lines before the job's variables, and the switch to PostScript
// after them.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

namespace kelm::pjl {

// Each writes one line and its LF.
void Output_Header(std::FILE* stream);  // the Universal Exit Language sequence (UEL) and "@PJL"
void Output_Comment(std::FILE* stream);
void Output_QVPJLVERSION(std::FILE* stream);
void Output_QVPJLIDENTIFIER(std::FILE* stream);
void Output_QVRIPCONTROLFLAG(std::FILE* stream);
void Output_QVSOFTWARENAME(std::FILE* stream);
void Output_QVSOFTWAREVERSION(std::FILE* stream);
// Returns what putc(3) returns for the LF.
int Output_EnterPostScript(std::FILE* stream);

}  // namespace kelm::pjl
