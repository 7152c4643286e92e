// On macOS a program cannot replace the system's allocators. An allocation by C++ that fails ends
// the program with exit status 1 and one line on standard error. Libraries written in C handle
// failed allocations themselves.
// SPDX-License-Identifier: Apache-2.0
#include "platform/out_of_memory.hpp"

#include <unistd.h>

#include <new>

#include "base/byte_source.hpp"

namespace {

void end() {
  kelm::base::writeAll(STDERR_FILENO, kelm::platform::kOutOfMemory);
  _exit(1);
}

[[maybe_unused]] const std::new_handler kBefore = std::set_new_handler(end);

}  // namespace
