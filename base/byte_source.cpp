// Byte input and output over file descriptors.
// SPDX-License-Identifier: Apache-2.0
#include "base/byte_source.hpp"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace kelm::base {
namespace {

// After a read or write of `descriptor` that failed with `error`: waits until it can be repeated.
// False when it cannot.
bool waitToRepeat(int descriptor, short events, int error) {
  if (error == EINTR) return true;
  if (error != EAGAIN && error != EWOULDBLOCK) return false;
  pollfd ready{descriptor, events, 0};
  return poll(&ready, 1, -1) >= 0 || errno == EINTR;
}

// Like writeAll. Afterwards `bytes` holds what was not written.
int writeFront(int descriptor, std::span<const char>& bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes = bytes.subspan(static_cast<std::size_t>(count));
    } else if (const int error = errno; !waitToRepeat(descriptor, POLLOUT, error)) {
      return error;
    }
  }
  return 0;
}

}  // namespace

std::size_t DescriptorSource::read(std::span<char> room) {
  for (;;) {
    const ssize_t count = ::read(descriptor_, room.data(), room.size());
    if (count >= 0) return static_cast<std::size_t>(count);
    const int error = errno;
    if (waitToRepeat(descriptor_, POLLIN, error)) continue;
    error_ = error;
    return 0;
  }
}

int writeAll(int descriptor, std::span<const char> bytes) { return writeFront(descriptor, bytes); }

DescriptorSink::DescriptorSink(int descriptor, OnFailure onFailure)
    : descriptor_(descriptor), onFailure_(std::move(onFailure)) {}

void DescriptorSink::write(std::span<const char> bytes) {
  const std::size_t size = bytes.size();
  const int error = writeFront(descriptor_, bytes);
  written_ += size - bytes.size();
  if (error == 0) return;
  if (const OnFailure report = std::exchange(onFailure_, nullptr)) report(error, written_);
}

}  // namespace kelm::base
