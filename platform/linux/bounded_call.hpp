// Calls into libraries that may never return, with a time limit.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <optional>
#include <system_error>
#include <thread>
#include <type_traits>
#include <utility>

namespace kelm::platform::linux_platform {

// The result of `call`; nothing when it does not return before `end`, or when no thread can be
// started. A late call goes on until the process ends: it must own everything it uses, and must not
// throw, because nothing would catch the exception in its thread.
template <class Call>
std::optional<std::invoke_result_t<Call&>> resultBefore(std::chrono::steady_clock::time_point end,
                                                        Call call) {
  using Result = std::invoke_result_t<Call&>;
  std::promise<Result> promise;
  std::future<Result> result = promise.get_future();
  try {
    std::thread([call = std::move(call), promise = std::move(promise)]() mutable {
      promise.set_value(std::invoke(call));
    }).detach();
  } catch (const std::system_error&) {
    return std::nullopt;
  }
  if (result.wait_until(end) != std::future_status::ready) return std::nullopt;
  return result.get();
}

}  // namespace kelm::platform::linux_platform
