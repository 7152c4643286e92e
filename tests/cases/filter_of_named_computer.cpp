// kelmfilter for systems without namespaces: the computer's name comes from the environment
// (KELM_TEST_COMPUTER), and no user is logged in.
// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <cstdlib>

#include "filter/pipeline.hpp"
#include "filter/printer_output.hpp"
#include "filter/termination.hpp"
#include "platform/pipe.hpp"
#include "platform/standard_streams.hpp"
#include "platform/system_platform.hpp"

namespace {

class NamedComputer final : public kelm::platform::ComputerName {
 public:
  std::string get() override {
    const char* name = std::getenv("KELM_TEST_COMPUTER");
    return name != nullptr ? name : "";
  }
};

class Nobody final : public kelm::platform::ConsoleUser {
 public:
  std::string name() override { return {}; }
};

}  // namespace

int main(int argc, char* argv[]) {
  kelm::filter::catchTermination();
  kelm::platform::openStandardStreams();
  kelm::platform::widenPipe(STDIN_FILENO);
  kelm::platform::widenPipe(STDOUT_FILENO);
  NamedComputer computer;
  Nobody nobody;
  kelm::platform::Platform set = kelm::platform::systemPlatform();
  set.computerName = &computer;
  set.consoleUser = &nobody;
  const kelm::platform::ScopedPlatform scope(set);
  static kelm::filter::PrinterOutput output(STDOUT_FILENO);
  return kelm::filter::runFilter(argc, argv, output.stream(), &output.sink());
}
