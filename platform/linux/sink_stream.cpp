// Streams over a sink on Linux: fopencookie(3).
// SPDX-License-Identifier: Apache-2.0
#include "platform/sink_stream.hpp"

#include <sys/types.h>

namespace kelm::platform {
namespace {

ssize_t writeCookie(void* sink, const char* bytes, std::size_t size) {
  static_cast<base::DescriptorSink*>(sink)->write({bytes, size});
  return static_cast<ssize_t>(size);
}

}  // namespace

std::FILE* openSinkStream(base::DescriptorSink& sink) {
  return fopencookie(&sink, "w",
                     {.read = nullptr, .write = writeCookie, .seek = nullptr, .close = nullptr});
}

}  // namespace kelm::platform
