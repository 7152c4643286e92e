// kelmfilter: CUPS starts it once per job (filter(7)).
// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <cstdio>

#include "filter/pipeline.hpp"
#include "platform/pipe.hpp"

int main(int argc, char* argv[]) {
  static char buffer[1U << 16U];
  std::setvbuf(stdout, buffer, _IOFBF, sizeof buffer);
  kelm::platform::widenPipe(STDIN_FILENO);
  kelm::platform::widenPipe(STDOUT_FILENO);
  return kelm::filter::runFilter(argc, argv, stdout);
}
