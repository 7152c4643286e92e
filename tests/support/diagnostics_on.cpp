// The diagnostic files switched on for a test.
#include "tests/support/diagnostics_on.hpp"

#include "filter/diagnostics.hpp"
#include "filter/print_job.hpp"

namespace kelm::tests {
namespace {

void forgetNames() {
  for (char* name : {filter::file_1_Name, filter::file_2_Name, filter::file_3_Name}) *name = '\0';
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
  filter::LogFileMessageCheck(true);
}

DiagnosticsOn::~DiagnosticsOn() {
  filter::LogFileMessageCheck(false);
  forgetNames();
}

void DiagnosticsOn::nameFiles() {
  const filter::PrintJobData job;
  filter::ClearLogFileName(&job);
}

std::string DiagnosticsOn::content(const char* name) const {
  return *name == '\0' ? "no file" : readFile(root_.path().string() + name).value_or("no file");
}

}  // namespace kelm::tests
