// The printer's stream: the filter's standard output.
// SPDX-License-Identifier: Apache-2.0
#include "filter/printer_output.hpp"

#include <cstring>
#include <new>
#include <string>

#include "platform/platform.hpp"
#include "platform/sink_stream.hpp"

namespace kelm::filter {
namespace {

void reportFailure(int error, std::uint64_t written) {
  platform::platform().systemLog->error(
      "[Driver] cannot write the job: " + std::string(std::strerror(error)) + " after " +
      std::to_string(written) + " bytes");
}

}  // namespace

PrinterOutput::PrinterOutput(int descriptor)
    : sink_(descriptor, reportFailure), stream_(platform::openSinkStream(sink_)) {
  if (!stream_) throw std::bad_alloc();
  std::setvbuf(stream_.get(), buffer_.data(), _IOFBF, buffer_.size());
}

}  // namespace kelm::filter
