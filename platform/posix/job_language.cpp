// The job's language: the locale environment that libcups reads.
// SPDX-License-Identifier: Apache-2.0
#include <cstdlib>

#include "platform/posix/posix_platform.hpp"

namespace kelm::platform::posix_platform {

void PosixJobLanguage::prefer(const char* language) {
  setenv("LC_MESSAGES", language, 1);
  unsetenv("LC_ALL");
}

}  // namespace kelm::platform::posix_platform
