// Whether the process has been asked to end.
// SPDX-License-Identifier: Apache-2.0
#include "platform/termination.hpp"

#include <atomic>

#include "platform/posix/posix_platform.hpp"

namespace kelm::platform {
namespace {

std::atomic<bool> noted = false;
static_assert(std::atomic<bool>::is_always_lock_free);

}  // namespace

void noteTermination() { noted = true; }

bool posix_platform::PosixTermination::requested() { return noted; }

}  // namespace kelm::platform
