// The end of a connection that a server keeps busy for too long.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/cut_off.hpp"

#include <sys/socket.h>
#include <sys/time.h>

#include <cerrno>

namespace kelm::ctl {
namespace {

http_t* volatile connectionToCut = nullptr;
volatile std::sig_atomic_t isCut = 0;

// What libcups reads next is the end of the connection.
void cut(int /*signal*/) {
  const int errorNumber = errno;
  isCut = 1;
  shutdown(httpGetFd(connectionToCut), SHUT_RDWR);
  errno = errorNumber;
}

// libcups may connect once more, so the signal comes again every second.
void setTimer(std::chrono::seconds limit) {
  itimerval timer{};
  timer.it_value.tv_sec = limit.count();
  timer.it_interval.tv_sec = 1;
  setitimer(ITIMER_REAL, &timer, nullptr);
}

}  // namespace

CutOff::CutOff(http_t* connection, std::chrono::seconds limit) : limit_(limit) {
  connectionToCut = connection;
  isCut = 0;
  struct sigaction action {};
  action.sa_handler = cut;
  action.sa_flags = SA_RESTART;
  sigaction(SIGALRM, &action, &previous_);
  resume();
}

CutOff::~CutOff() {
  suspend();
  sigaction(SIGALRM, &previous_, nullptr);
}

void CutOff::suspend() { setTimer(std::chrono::seconds(0)); }

void CutOff::resume() { setTimer(limit_); }

bool CutOff::isDone() { return isCut != 0; }

}  // namespace kelm::ctl
