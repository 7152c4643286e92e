// The printer's stream: the filter's standard output.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstdio>
#include <memory>

#include "base/byte_source.hpp"

namespace kelm::filter {

// A buffered stream over a descriptor that it does not own. Unlike stdio's own, it loses nothing
// when the descriptor is non-blocking. The first failed write is reported to the system log, with
// the number of bytes written until then; the job goes on.
class PrinterOutput {
 public:
  explicit PrinterOutput(int descriptor);
  PrinterOutput(const PrinterOutput&) = delete;
  PrinterOutput& operator=(const PrinterOutput&) = delete;

  std::FILE* stream() { return stream_.get(); }
  // Writes past the stream's buffer; flush the stream before.
  base::DescriptorSink& sink() { return sink_; }

 private:
  struct Close {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
  };

  base::DescriptorSink sink_;
  std::array<char, 1U << 16U> buffer_{};
  std::unique_ptr<std::FILE, Close> stream_;
};

}  // namespace kelm::filter
