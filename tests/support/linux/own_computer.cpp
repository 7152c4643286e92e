// A process's own host name and mounts on Linux: namespaces(7).
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/own_computer.hpp"

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace kelm::tests {

bool enterOwnComputer() {
  const int flags = CLONE_NEWUTS | CLONE_NEWNS;
  if (unshare(geteuid() == 0 ? flags : flags | CLONE_NEWUSER) != 0) return false;
  return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool hideProcessesFromNextChild() {
  return unshare(geteuid() == 0 ? CLONE_NEWPID : CLONE_NEWPID | CLONE_NEWUSER) == 0;
}

bool nameOwnComputer(const std::string& name) { return sethostname(name.data(), name.size()) == 0; }

bool hideDirectory(const char* directory) {
  return mount("none", directory, "tmpfs", 0, nullptr) == 0;
}

}  // namespace kelm::tests
