// The PPD that a subcommand reads: a file, or a queue's.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <memory>
#include <string>

namespace kelm::ctl {

struct PpdCloser {
  void operator()(ppd_file_t* ppd) const;
};
using PpdHandle = std::unique_ptr<ppd_file_t, PpdCloser>;

// Either the PPD or, when it is null, what went wrong and what to do.
struct OpenedPpd {
  PpdHandle ppd;
  std::string problem;
};

OpenedPpd openPpdFile(const std::string& path);

// Asks the print server (CUPS_SERVER) for the queue's PPD and removes the library's copy again.
OpenedPpd openQueuePpd(const std::string& queue);

}  // namespace kelm::ctl
