// The system log: the socket of syslog(3), under the program's own name.
// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <syslog.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <string_view>

#include "platform/posix/posix_platform.hpp"
#include "platform/posix/program_name.hpp"

namespace kelm::platform::posix_platform {
namespace {

// Connected to the system log, without blocking; negative when there is none.
int openLog() {
  const int log = socket(AF_UNIX, SOCK_DGRAM, 0);
  fcntl(log, F_SETFD, FD_CLOEXEC);
  fcntl(log, F_SETFL, O_NONBLOCK);
  constexpr std::string_view kPath = _PATH_LOG;
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::copy(kPath.begin(), kPath.end(), address.sun_path);
  if (connect(log, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return log;
  if (log >= 0) close(log);
  return -1;
}

// The time as the system log writes it, whatever the job's language: "Nov  2 04:05:06".
std::string timestamp() {
  constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), " %e %H:%M:%S", &local);
  return kMonths[local.tm_mon] + std::string(text.data());
}

}  // namespace

void PosixSystemLog::error(const std::string& message) {
  const int log = openLog();
  if (log < 0) return;
  const std::string record = "<" + std::to_string(LOG_USER | LOG_ERR) + ">" + timestamp() + " " +
                             programName() + ": " + message;
  send(log, record.data(), record.size(), 0);
  close(log);
}

}  // namespace kelm::platform::posix_platform
