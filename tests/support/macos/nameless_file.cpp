// Files without a name on macOS: temporary ones that are removed while they are open.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/nameless_file.hpp"

#include <fcntl.h>

#include <cstdio>

namespace kelm::tests {

int openNamelessFile() {
  std::FILE* file = std::tmpfile();
  if (file == nullptr) return -1;
  const int descriptor = fcntl(fileno(file), F_DUPFD_CLOEXEC, 0);
  std::fclose(file);
  return descriptor;
}

}  // namespace kelm::tests
