// kelmfilter: CUPS starts it once per job (filter(7)).
// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <csignal>

#include "filter/pipeline.hpp"
#include "filter/printer_output.hpp"
#include "filter/termination.hpp"
#include "platform/out_of_memory.hpp"
#include "platform/pipe.hpp"
#include "platform/standard_streams.hpp"

// In CUPS' own form.
const std::string_view kelm::platform::kOutOfMemory =
    "ERROR: Unable to print the job - out of memory\n";

int main(int argc, char* argv[]) {
  kelm::filter::catchTermination();
  std::signal(SIGPIPE, SIG_IGN);  // a reader that is gone is a failed write
  kelm::platform::openStandardStreams();
  kelm::platform::widenPipe(STDIN_FILENO);
  kelm::platform::widenPipe(STDOUT_FILENO);
  static kelm::filter::PrinterOutput output(STDOUT_FILENO);
  return kelm::filter::runFilter(argc, argv, output.stream(), &output.sink());
}
