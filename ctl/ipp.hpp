// An IPP message that is deleted with its owner.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/cups.h>

#include <memory>

namespace kelm::ctl {

struct IppDeleter {
  void operator()(ipp_t* message) const { ippDelete(message); }
};
using Ipp = std::unique_ptr<ipp_t, IppDeleter>;

}  // namespace kelm::ctl
