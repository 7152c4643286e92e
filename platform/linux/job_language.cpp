// The job's language on Linux: the locale environment that libcups reads.
// SPDX-License-Identifier: Apache-2.0
#include <cstdlib>

#include "platform/linux/linux_platform.hpp"

namespace kelm::platform::linux_platform {

void LinuxJobLanguage::prefer(const char* language) {
  setenv("LC_MESSAGES", language, 1);
  unsetenv("LC_ALL");
}

}  // namespace kelm::platform::linux_platform
