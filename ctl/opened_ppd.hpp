// A PPD that a subcommand reads.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <memory>
#include <string>

#include "ctl/temporary_file.hpp"

namespace kelm::ctl {

struct PpdCloser {
  void operator()(ppd_file_t* ppd) const;
};
using PpdHandle = std::unique_ptr<ppd_file_t, PpdCloser>;

// Either the PPD or, when it is null, what went wrong and what to do.
struct OpenedPpd {
  PpdHandle ppd;
  std::string problem;
  bool isForeign = false;  // a queue's: it has no PPD, or one that does not use kelmfilter
};

OpenedPpd openPpdFile(const std::string& path);

// As openPpdFile; `description` and `advice` are for the message.
OpenedPpd openPpdAt(const std::string& path, const std::string& description,
                    const std::string& advice);
OpenedPpd openPpdIn(const TemporaryFile& file, const std::string& description,
                    const std::string& advice);

}  // namespace kelm::ctl
