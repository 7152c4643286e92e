// The printer's stream: the filter's standard output.
// SPDX-License-Identifier: Apache-2.0
#include "filter/printer_output.hpp"

#include <cstring>
#include <new>
#include <string>

#include "platform/platform.hpp"

namespace kelm::filter {
namespace {

void reportFailure(int error, std::uint64_t written) {
  platform::platform().systemLog->error(
      "[Driver] cannot write the job: " + std::string(std::strerror(error)) + " after " +
      std::to_string(written) + " bytes");
}

// The stream is told of no error: after one it would keep the lost bytes in its buffer.
ssize_t writeCookie(void* sink, const char* bytes, std::size_t size) {
  static_cast<base::DescriptorSink*>(sink)->write({bytes, size});
  return static_cast<ssize_t>(size);
}

}  // namespace

PrinterOutput::PrinterOutput(int descriptor)
    : sink_(descriptor, reportFailure),
      stream_(
          fopencookie(&sink_, "w",
                      {.read = nullptr, .write = writeCookie, .seek = nullptr, .close = nullptr})) {
  if (!stream_) throw std::bad_alloc();
  std::setvbuf(stream_.get(), buffer_.data(), _IOFBF, buffer_.size());
}

}  // namespace kelm::filter
