// Which of many sockets have something to read.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <span>

namespace kelm::platform {

class SocketSet {
 public:
  SocketSet();
  ~SocketSet();
  SocketSet(const SocketSet&) = delete;
  SocketSet& operator=(const SocketSet&) = delete;

  // `owner` identifies the socket. False when the system refuses.
  bool add(int socket, void* owner);

  // A socket must be removed before it is closed: it would stay in the set while a child process
  // has it, too.
  void remove(int socket);

  // Itself readable while one of the sockets is.
  int descriptor() const { return descriptor_; }

  // The owners of the readable sockets, at most kMostReadable, in `room`. Does not wait. There may
  // be more of them if the room is full, or if kMostReadable were returned.
  static constexpr std::size_t kMostReadable = 64;
  std::span<void*> readable(std::span<void*> room) const;

 private:
  int descriptor_;
};

}  // namespace kelm::platform
