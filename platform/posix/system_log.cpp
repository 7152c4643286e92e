// The system log: the socket of syslog(3), under the program's own name.
// SPDX-License-Identifier: Apache-2.0
#include <sys/socket.h>
#include <sys/un.h>
#include <syslog.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>

#include "platform/posix/posix_platform.hpp"

namespace kelm::platform::posix_platform {
namespace {

// Connected to the system log, without blocking; negative when there is none.
int openLog() {
  const int log = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  const sockaddr_un address{.sun_family = AF_UNIX, .sun_path = "/dev/log"};
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
                             program_invocation_short_name + ": " + message;
  send(log, record.data(), record.size(), MSG_NOSIGNAL);
  close(log);
}

}  // namespace kelm::platform::posix_platform
