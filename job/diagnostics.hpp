// The diagnostic files for support: the job's options, the PostScript as it was read and as it was
// written.
//
// They are written only while the switch file exists. Every call opens its file, appends and closes
// it, so that nothing is lost when a job is killed. A file is skipped silently when it cannot be
// opened, is not a regular file of this user, or has further hard links. Zero bytes are not
// written. With the switch off every call costs one test of a flag.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string_view>

namespace kelm::job {

struct PrintJobData;

inline constexpr char kDiagnosticSwitchFile[] = "/Library/Caches/file.txt";
inline constexpr std::size_t kDiagnosticNameSize = 512;

extern bool fileOutPutFlag;  // the diagnostic switch; set once by LogFileMessageCheck
extern bool logCheck;        // the same value, by which the pipeline decides to dump the options
extern char file_1_Name[kDiagnosticNameSize];
extern char file_2_Name[kDiagnosticNameSize];
extern char file_3_Name[kDiagnosticNameSize];

// Whether the switch file exists; its content does not matter.
bool diagnosticsWanted();

void LogFileMessageCheck(bool flag);

// Fixes the three names from the local time and the option "DestinationPrinterID", when the switch
// is on; a printer ID with a "/" is not used. Clears no file: they are only appended to.
void ClearLogFileName(const PrintJobData* job);

// Append `text`, and a line feed when `newline` is set, to file 1, 2 or 3.
void LogFile1Message(const char* text, bool newline);
void LogFile2Message_char(const char* text, bool newline);
void LogFile3Message_char(const char* text, bool newline);

// Append one character to file 2 or 3; a zero byte writes nothing.
void LogFile2Message(int character);
void LogFile3Message(int character);

// Append a run of characters to file 2 or 3 in one call, with the same result as a call for each
// character. An empty run makes no file.
void LogFile2Run(std::string_view characters);
void LogFile3Run(std::string_view characters);

// Appends `value` in the printf format `format` (for one int), at most 255 bytes, to file 3.
void LogFile3Message_char_join(const char* format, int value, bool newline);

// The trace hook: marks the stages for readers and debuggers, and writes nothing.
constexpr void LogMessage([[maybe_unused]] const char* text, [[maybe_unused]] bool newline) {}

// Called at start. Does nothing: the files are only appended to.
constexpr void ClearLogFile() {}

}  // namespace kelm::job
