// Sets of sockets on macOS: kqueue(2).
// SPDX-License-Identifier: Apache-2.0
#include "platform/socket_set.hpp"

#include <sys/event.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <ctime>

namespace kelm::platform {
namespace {

bool change(int queue, int socket, std::uint16_t action, void* owner) {
  struct kevent wanted {};
  EV_SET(&wanted, static_cast<uintptr_t>(socket), EVFILT_READ, action, 0, 0, owner);
  return kevent(queue, &wanted, 1, nullptr, 0, nullptr) == 0;
}

}  // namespace

SocketSet::SocketSet() : descriptor_(kqueue()) {}

SocketSet::~SocketSet() {
  if (descriptor_ >= 0) close(descriptor_);
}

bool SocketSet::add(int socket, void* owner) { return change(descriptor_, socket, EV_ADD, owner); }

void SocketSet::remove(int socket) { change(descriptor_, socket, EV_DELETE, nullptr); }

std::span<void*> SocketSet::readable(std::span<void*> room) const {
  std::array<struct kevent, kMostReadable> events{};
  const auto most = static_cast<int>(std::min(room.size(), events.size()));
  const std::timespec now{};
  const int count = std::max(kevent(descriptor_, nullptr, 0, events.data(), most, &now), 0);
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) room[i] = events[i].udata;
  return room.first(static_cast<std::size_t>(count));
}

}  // namespace kelm::platform
