// Sets of sockets on Linux: epoll(7).
// SPDX-License-Identifier: Apache-2.0
#include "platform/socket_set.hpp"

#include <sys/epoll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace kelm::platform {

SocketSet::SocketSet() : descriptor_(epoll_create1(EPOLL_CLOEXEC)) {}

SocketSet::~SocketSet() {
  if (descriptor_ >= 0) close(descriptor_);
}

bool SocketSet::add(int socket, void* owner) {
  epoll_event event{};
  event.events = EPOLLIN;
  event.data.ptr = owner;
  return epoll_ctl(descriptor_, EPOLL_CTL_ADD, socket, &event) == 0;
}

void SocketSet::remove(int socket) { epoll_ctl(descriptor_, EPOLL_CTL_DEL, socket, nullptr); }

std::span<void*> SocketSet::readable(std::span<void*> room) const {
  std::array<epoll_event, kMostReadable> events{};
  const auto most = static_cast<int>(std::min(room.size(), events.size()));
  const int count = std::max(epoll_wait(descriptor_, events.data(), most, 0), 0);
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) room[i] = events[i].data.ptr;
  return room.first(static_cast<std::size_t>(count));
}

}  // namespace kelm::platform
