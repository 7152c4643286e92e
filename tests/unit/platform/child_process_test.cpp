// Processes that end with their parent.
// SPDX-License-Identifier: Apache-2.0
#include "platform/child_process.hpp"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "platform/pipe.hpp"
#include "tests/support/child.hpp"

namespace kelm::platform {
namespace {

// The grandchild keeps the pipe open until it is killed. Then reading reaches the end.
TEST(EndWithParent, KillsTheChildOfAParentThatHasEnded) {
  int ends[2];
  ASSERT_TRUE(openPipe(ends));
  EXPECT_EQ(tests::inChild([&ends] {
              close(ends[0]);
              const pid_t parent = getpid();
              if (fork() != 0) {
                usleep(100'000);
                return std::string();
              }
              alarm(60);
              endWithParent(parent);
              for (;;) pause();
            }),
            "");
  close(ends[1]);
  char byte = 0;
  EXPECT_EQ(read(ends[0], &byte, 1), 0);
  close(ends[0]);
}

}  // namespace
}  // namespace kelm::platform
