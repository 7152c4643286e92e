// The diagnostic files for support: the job's options, the PostScript as it was read and as it was
// written.
// SPDX-License-Identifier: Apache-2.0
#include "job/diagnostics.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <string>

#include "base/byte_source.hpp"
#include "job/print_job.hpp"
#include "platform/platform.hpp"

namespace kelm::job {

bool fileOutPutFlag = false;
bool logCheck = false;
char file_1_Name[kDiagnosticNameSize];
char file_2_Name[kDiagnosticNameSize];
char file_3_Name[kDiagnosticNameSize];

namespace {

constexpr mode_t kFileMode = 0600;
constexpr std::size_t kJoinBufferSize = 256;
constexpr std::size_t kWriteSize = std::size_t{1} << 16;

void writeWithoutZeros(int descriptor, std::string_view text) {
  std::array<char, kWriteSize> kept;
  for (; !text.empty(); text.remove_prefix(std::min(text.size(), kept.size()))) {
    const std::string_view piece = text.substr(0, kept.size());
    const auto end = std::remove_copy(piece.begin(), piece.end(), kept.begin(), '\0');
    base::writeAll(descriptor, {kept.begin(), end});
  }
}

// Whether this user made the file: another user may have put a file, a FIFO or a hard link in its
// place.
bool isOwnFile(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid() &&
         status.st_nlink == 1;
}

void append(const char* name, std::string_view text, bool newline) {
  if (!fileOutPutFlag) return;
  const std::string path = platform::platform().fileRoot->locate(name);
  const int descriptor = open(
      path.c_str(), O_RDWR | O_CREAT | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kFileMode);
  if (descriptor < 0) return;
  if (isOwnFile(descriptor)) {
    writeWithoutZeros(descriptor, text);
    if (newline) base::writeAll(descriptor, std::string_view("\n"));
  }
  close(descriptor);
}

void appendCharacter(const char* name, int character) {
  const char text = static_cast<char>(character);
  append(name, {&text, 1}, false);
}

// The prefix of the names: the job's printer ID, which may be empty, and "_". Nothing without a
// printer ID, or when a "/" in it would lead to another directory.
std::string namePrefix(const PrintJobData* job) {
  std::string printerId;
  const bool usable = getOptionValue(job, "DestinationPrinterID", printerId) &&
                      printerId.find('/') == std::string::npos;
  return usable ? printerId + "_" : std::string();
}

// Names file `number`, cut to fit: "/Library/Caches/ID_1_YYYYMMDDhhmmss.txt".
void nameFile(char (&name)[kDiagnosticNameSize], int number, const std::string& prefix,
              const std::tm& time) {
  std::snprintf(name, sizeof name, "/Library/Caches/%s%d_%04d%02d%02d%02d%02d%02d.txt",
                prefix.c_str(), number, time.tm_year + 1900, time.tm_mon + 1, time.tm_mday,
                time.tm_hour, time.tm_min, time.tm_sec);
}

}  // namespace

bool diagnosticsWanted() {
  const std::string path = platform::platform().fileRoot->locate(kDiagnosticSwitchFile);
  return access(path.c_str(), F_OK) == 0;
}

void LogFileMessageCheck(bool flag) { fileOutPutFlag = flag; }

void ClearLogFileName(const PrintJobData* job) {
  if (!fileOutPutFlag) return;
  const std::tm time = platform::platform().wallClock->localTime();
  const std::string prefix = namePrefix(job);
  nameFile(file_1_Name, 1, prefix, time);
  nameFile(file_2_Name, 2, prefix, time);
  nameFile(file_3_Name, 3, prefix, time);
}

void LogFile1Message(const char* text, bool newline) { append(file_1_Name, text, newline); }

void LogFile2Message_char(const char* text, bool newline) { append(file_2_Name, text, newline); }

void LogFile3Message_char(const char* text, bool newline) { append(file_3_Name, text, newline); }

void LogFile2Message(int character) { appendCharacter(file_2_Name, character); }

void LogFile3Message(int character) { appendCharacter(file_3_Name, character); }

void LogFile2Run(std::string_view characters) {
  if (!characters.empty()) append(file_2_Name, characters, false);
}

void LogFile3Run(std::string_view characters) {
  if (!characters.empty()) append(file_3_Name, characters, false);
}

void LogFile3Message_char_join(const char* format, int value, bool newline) {
  std::array<char, kJoinBufferSize> text{};
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  std::snprintf(text.data(), text.size(), format, value);
#pragma GCC diagnostic pop
  append(file_3_Name, text.data(), newline);
}

}  // namespace kelm::job
