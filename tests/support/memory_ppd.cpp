// A queue's PPD in memory, for tests.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/memory_ppd.hpp"

#include <unistd.h>

#include "base/byte_source.hpp"
#include "job/ppd_calls.hpp"
#include "tests/support/nameless_file.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::tests {

MemoryPpd::MemoryPpd(std::string_view attributes) {
  const int descriptor = openNamelessFile();
  if (descriptor < 0) return;
  base::writeAll(descriptor, std::string_view("*PPD-Adobe: \"4.3\"\n"));
  base::writeAll(descriptor, attributes);
  lseek(descriptor, 0, SEEK_SET);
  ppd_ = ppdOpenFd(descriptor);  // closes it
}

MemoryPpd::~MemoryPpd() {
  if (ppd_ != nullptr) job::r_ppdClose(ppd_);
}

}  // namespace kelm::tests
