// A kelmctl that finds services through dns_sd.h, as on macOS (dns_sd_service_names_test.sh).
// SPDX-License-Identifier: Apache-2.0
#include <iostream>

#include "ctl/command_line.hpp"
#include "platform/macos/macos_platform.hpp"
#include "platform/system_platform.hpp"

int main(int argc, char* argv[]) {
  kelm::platform::macos_platform::MacosDnsSd dnsSd;
  kelm::platform::Platform set = kelm::platform::systemPlatform();
  set.dnsSd = &dnsSd;
  const kelm::platform::ScopedPlatform scope(set);
  return kelm::ctl::runCommandLine(argc, argv, {std::cout, std::cerr, false, false});
}
