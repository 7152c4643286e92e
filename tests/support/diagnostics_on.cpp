// The diagnostic files switched on for a test.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/diagnostics_on.hpp"

#include "job/diagnostics.hpp"
#include "job/print_job.hpp"

namespace kelm::tests {
namespace {

void forgetNames() {
  for (char* name : {job::file_1_Name, job::file_2_Name, job::file_3_Name}) *name = '\0';
}

std::tm thatAfternoon() {
  std::tm time{};
  time.tm_year = 2016 - 1900;
  time.tm_mon = 8;  // September
  time.tm_mday = 30;
  time.tm_hour = 14;
  time.tm_min = 5;
  time.tm_sec = 9;
  return time;
}

}  // namespace

DiagnosticsOn::DiagnosticsOn() {
  std::filesystem::create_directories(caches());
  writeFile(caches() / "file.txt", "");
  platform.fileRoot.root = root_.path().string();
  platform.wallClock.now = thatAfternoon();
  job::LogFileMessageCheck(true);
}

DiagnosticsOn::~DiagnosticsOn() {
  job::LogFileMessageCheck(false);
  forgetNames();
}

void DiagnosticsOn::nameFiles() {
  const job::PrintJobData job;
  job::ClearLogFileName(&job);
}

std::string DiagnosticsOn::content(const char* name) const {
  return *name == '\0' ? "no file" : readFile(root_.path().string() + name).value_or("no file");
}

}  // namespace kelm::tests
