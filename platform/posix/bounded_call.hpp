// Calls into libraries that may never return, with a time limit.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <chrono>
#include <csignal>
#include <functional>
#include <future>
#include <optional>
#include <system_error>
#include <thread>
#include <type_traits>
#include <utility>

#include "platform/platform.hpp"

namespace kelm::platform::posix_platform {

// A thread that runs `work` and handles no signals, so that they reach the thread whose sleep they
// are to end. Not joinable when no thread can be started.
template <class Work>
std::thread threadWithoutSignals(Work&& work) {
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  std::thread thread;
  try {
    thread = std::thread(std::forward<Work>(work));
  } catch (const std::system_error&) {
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return thread;
}

// Waits until `result` is ready, until `end`, or until the process is asked to end (checked every
// 50 ms). Returns whether `result` is ready.
template <class Result>
bool readyBefore(std::chrono::steady_clock::time_point end, const std::future<Result>& result) {
  constexpr std::chrono::milliseconds kLook{50};
  std::chrono::steady_clock::time_point now;
  while (!platform().termination->requested() && (now = std::chrono::steady_clock::now()) < end) {
    if (result.wait_until(std::min(end, now + kLook)) == std::future_status::ready) return true;
  }
  return result.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

// The result of `call`; nothing when it does not return before `end` or before the process is asked
// to end, or when no thread can be started. A late call goes on until the process ends: it must own
// everything it uses, and must not throw, because nothing would catch the exception in its thread.
// The thread of a call that is not late has ended: at its end it takes locks of the C library, and
// a process that is forked meanwhile would find them locked for ever.
template <class Call>
std::optional<std::invoke_result_t<Call&>> resultBefore(std::chrono::steady_clock::time_point end,
                                                        Call call) {
  using Result = std::invoke_result_t<Call&>;
  std::promise<Result> promise;
  std::future<Result> result = promise.get_future();
  std::thread thread =
      threadWithoutSignals([call = std::move(call), promise = std::move(promise)]() mutable {
        promise.set_value(std::invoke(call));
      });
  if (!thread.joinable()) return std::nullopt;
  if (!readyBefore(end, result)) {
    thread.detach();
    return std::nullopt;
  }
  thread.join();
  return result.get();
}

}  // namespace kelm::platform::posix_platform
