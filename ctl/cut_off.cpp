// The end of a connection that a server keeps busy for too long.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/cut_off.hpp"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <ctime>

#include "ctl/interruption.hpp"

namespace kelm::ctl {
namespace {

// How often the limits are looked at. libcups waits for ten seconds at a time while encryption
// begins, and a signal begins that wait again, so this must be longer.
constexpr std::time_t kPause = 11;  // seconds

http_t* volatile connectionToCut = nullptr;
volatile std::sig_atomic_t isCut = 0;
std::atomic<std::time_t> beginning = 0;
std::atomic<std::time_t> limitNow = 0;                    // seconds
std::atomic<std::time_t> limitWhenWanted = 0;             // seconds
static_assert(decltype(beginning)::is_always_lock_free);  // a signal handler reads them

std::time_t now() {
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return time.tv_sec;
}

// What libcups reads after that is the end of the connection. libcups may connect once more, so the
// signal comes again every second. A signal handler may call all of these functions.
void look(int /*signal*/) {
  const int errorNumber = errno;
  const std::time_t limit = Interruption::isWanted()
                                ? std::min(limitNow.load(), limitWhenWanted.load())
                                : limitNow.load();
  const std::time_t left = beginning + limit - now();
  if (left > 0) {
    alarm(static_cast<unsigned>(std::min(left, kPause)));
  } else {
    isCut = 1;
    shutdown(httpGetFd(connectionToCut), SHUT_RDWR);
    alarm(1);
  }
  errno = errorNumber;
}

}  // namespace

CutOff::CutOff(http_t* connection, std::chrono::seconds limit, std::chrono::seconds limitAtTheEnd) {
  connectionToCut = connection;
  limitNow = limit.count();
  limitWhenWanted = limitAtTheEnd.count();
  isCut = 0;
  struct sigaction action {};
  action.sa_handler = look;
  action.sa_flags = SA_RESTART;
  sigaction(SIGALRM, &action, &previous_);
  resume();
}

CutOff::~CutOff() {
  suspend();
  sigaction(SIGALRM, &previous_, nullptr);
}

void CutOff::suspend() { alarm(0); }

void CutOff::resume() {
  beginning = now();
  alarm(static_cast<unsigned>(std::clamp<std::time_t>(limitNow, 1, kPause)));
}

bool CutOff::isDone() { return isCut != 0; }

}  // namespace kelm::ctl
