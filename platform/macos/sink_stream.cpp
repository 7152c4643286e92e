// Streams over a sink on macOS: funopen(3).
// SPDX-License-Identifier: Apache-2.0
#include "platform/sink_stream.hpp"

namespace kelm::platform {
namespace {

int writeCookie(void* sink, const char* bytes, int size) {
  static_cast<base::DescriptorSink*>(sink)->write({bytes, static_cast<std::size_t>(size)});
  return size;
}

}  // namespace

std::FILE* openSinkStream(base::DescriptorSink& sink) {
  return funopen(&sink, nullptr, writeCookie, nullptr, nullptr);
}

}  // namespace kelm::platform
