// On macOS a program cannot put functions of its own in the place of the system's allocators. An
// allocation by C++ that fails ends the filter with exit status 1 and one line for CUPS on standard
// error; libraries written in C have their own ways.
// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <new>
#include <string_view>

#include "base/byte_source.hpp"

namespace {

void end() {
  constexpr std::string_view kMessage = "ERROR: Unable to print the job - out of memory\n";
  kelm::base::writeAll(STDERR_FILENO, kMessage);
  _exit(1);
}

[[maybe_unused]] const std::new_handler kBefore = std::set_new_handler(end);

}  // namespace
