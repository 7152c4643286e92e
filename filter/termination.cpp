// A cancelled job: what SIGTERM does.
// SPDX-License-Identifier: Apache-2.0
#include "filter/termination.hpp"

#include <csignal>

#include "platform/termination.hpp"

namespace kelm::filter {
namespace {

void SignalHandler(int /*signal*/) { platform::noteTermination(); }

}  // namespace

void catchTermination() {
  struct sigaction action {};
  action.sa_handler = SignalHandler;
  action.sa_flags = SA_RESTART;
  sigaction(SIGTERM, &action, nullptr);
}

}  // namespace kelm::filter
