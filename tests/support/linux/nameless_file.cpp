// Files without a name on Linux: memory.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/nameless_file.hpp"

#include <sys/mman.h>

namespace kelm::tests {

int openNamelessFile() { return memfd_create("test", MFD_CLOEXEC); }

}  // namespace kelm::tests
