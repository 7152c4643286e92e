// Calls into libraries that may never come back, waited for up to a limit.
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

namespace kelm::platform::linux_bodies {

// What `call` returns, when it does so before `end`; nothing when it does not, or when there is no
// thread for it. A call that is late is left behind and ends with the process: it must own all that
// it uses, and throw nothing, for no one would catch it in its thread.
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

}  // namespace kelm::platform::linux_bodies
