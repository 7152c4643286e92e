// A queue's PPD in memory, for tests.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <string_view>

namespace kelm::tests {

// A PPD that has only `attributes`: lines like `*Keyword: "value"`, as libcups reads them. The
// handle is null when libcups cannot read them.
class MemoryPpd {
 public:
  explicit MemoryPpd(std::string_view attributes = {});
  ~MemoryPpd();
  MemoryPpd(const MemoryPpd&) = delete;
  MemoryPpd& operator=(const MemoryPpd&) = delete;

  operator ppd_file_t*() const { return ppd_; }

 private:
  ppd_file_t* ppd_ = nullptr;
};

}  // namespace kelm::tests
