// stream_problems FILE... : what "kelmctl explain --stream" finds wrong in each printer stream, a
// line "FILE: PROBLEM" for each. One process for many streams: starting kelmctl takes longer than
// reading one.
// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <unistd.h>

#include <iostream>

#include "base/byte_source.hpp"
#include "explain/stream.hpp"

int main(int argc, char* argv[]) {
  for (int i = 1; i < argc; ++i) {
    const int descriptor = open(argv[i], O_RDONLY | O_CLOEXEC);
    kelm::base::DescriptorSource source(descriptor);
    const kelm::explain::StreamReport report = kelm::explain::readStream(source);
    if (descriptor < 0 || source.error() != 0 || report.header.empty()) {
      std::cerr << argv[i] << " cannot be read or has no header\n";
      return 1;
    }
    close(descriptor);
    for (const kelm::explain::Finding& finding : report.findings) {
      std::cout << argv[i] << ": " << finding.problem << '\n';
    }
  }
}
