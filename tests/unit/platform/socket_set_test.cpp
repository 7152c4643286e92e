// Which of many sockets have something to read.
// SPDX-License-Identifier: Apache-2.0
#include "platform/socket_set.hpp"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <vector>

namespace kelm::platform {
namespace {

// Two connected sockets.
struct SocketPair {
  SocketPair() { opened = socketpair(AF_UNIX, SOCK_DGRAM, 0, ends.data()) == 0; }
  ~SocketPair() {
    for (const int end : ends) close(end);
  }
  SocketPair(const SocketPair&) = delete;
  SocketPair& operator=(const SocketPair&) = delete;

  bool isSent() const { return ::send(ends[1], "x", 1, 0) == 1; }
  int socket() const { return ends[0]; }

  std::array<int, 2> ends{};
  bool opened = false;
};

std::vector<void*> readableIn(const SocketSet& set) {
  std::array<void*, 8> room{};
  const std::span<void*> found = set.readable(room);
  std::vector<void*> owners(found.begin(), found.end());
  std::sort(owners.begin(), owners.end());
  return owners;
}

bool isReadable(int descriptor) {
  pollfd source{descriptor, POLLIN, 0};
  return poll(&source, 1, 0) == 1 && (source.revents & POLLIN) != 0;
}

TEST(SocketSet, NamesTheSocketsThatHaveSomethingToRead) {
  std::array<SocketPair, 3> pairs;
  SocketSet set;
  for (SocketPair& pair : pairs) ASSERT_TRUE(pair.opened && set.add(pair.socket(), &pair));
  EXPECT_EQ(readableIn(set), std::vector<void*>{});
  EXPECT_FALSE(isReadable(set.descriptor()));
  ASSERT_TRUE(pairs[2].isSent() && pairs[0].isSent());
  EXPECT_TRUE(isReadable(set.descriptor()));
  EXPECT_EQ(readableIn(set), (std::vector<void*>{&pairs[0], &pairs[2]}));
}

TEST(SocketSet, NamesASocketUntilItIsRead) {
  SocketPair pair;
  SocketSet set;
  ASSERT_TRUE(pair.opened && set.add(pair.socket(), &pair) && pair.isSent());
  EXPECT_EQ(readableIn(set), std::vector<void*>{&pair});
  EXPECT_EQ(readableIn(set), std::vector<void*>{&pair});
  char byte = 0;
  ASSERT_EQ(read(pair.socket(), &byte, 1), 1);
  EXPECT_EQ(readableIn(set), std::vector<void*>{});
}

TEST(SocketSet, NamesNoMoreThanThereIsRoomFor) {
  std::array<SocketPair, 3> pairs;
  SocketSet set;
  for (SocketPair& pair : pairs) {
    ASSERT_TRUE(pair.opened && set.add(pair.socket(), &pair) && pair.isSent());
  }
  std::array<void*, 2> room{};
  EXPECT_EQ(set.readable(room).size(), 2U);
}

// The child process keeps the removed socket open.
TEST(SocketSet, ForgetsARemovedSocketThatAChildProcessHas) {
  SocketPair pair;
  SocketSet set;
  ASSERT_TRUE(pair.opened && set.add(pair.socket(), &pair));
  const pid_t child = fork();
  if (child == 0) {
    pause();
    _exit(0);
  }
  ASSERT_GT(child, 0);
  set.remove(pair.socket());
  close(pair.socket());
  EXPECT_TRUE(pair.isSent());
  EXPECT_EQ(readableIn(set), std::vector<void*>{});
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  pair.ends[0] = -1;
}

TEST(SocketSet, RefusesAClosedSocket) {
  SocketSet set;
  EXPECT_FALSE(set.add(-1, nullptr));
}

}  // namespace
}  // namespace kelm::platform
