// Byte input and output over file descriptors.
// SPDX-License-Identifier: Apache-2.0
#include "base/byte_source.hpp"

#include <unistd.h>

#include <cerrno>

namespace kelm::base {

std::size_t DescriptorSource::read(std::span<char> room) {
  ssize_t count = 0;
  do {
    count = ::read(descriptor_, room.data(), room.size());
  } while (count < 0 && errno == EINTR);
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void writeAll(int descriptor, std::span<const char> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
}

}  // namespace kelm::base
