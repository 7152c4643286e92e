// The capacity of pipes.
// SPDX-License-Identifier: Apache-2.0
#include "platform/pipe.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/support/temporary_directory.hpp"

namespace kelm::platform {
namespace {

constexpr int kUsual = 64 * 1024;
constexpr int kWide = 256 * 1024;

class WidenPipe : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(pipe(ends_), 0); }
  void TearDown() override {
    close(ends_[0]);
    close(ends_[1]);
  }
  int capacity() const { return fcntl(ends_[0], F_GETPIPE_SZ); }
  int ends_[2]{};
};

TEST_F(WidenPipe, WidensAPipeFromEitherEnd) {
  ASSERT_EQ(capacity(), kUsual);
  widenPipe(ends_[0]);
  EXPECT_EQ(capacity(), kWide);
  ASSERT_EQ(fcntl(ends_[0], F_SETPIPE_SZ, kUsual), kUsual);
  widenPipe(ends_[1]);
  EXPECT_EQ(capacity(), kWide);
}

TEST_F(WidenPipe, LeavesAWiderPipe) {
  ASSERT_EQ(fcntl(ends_[0], F_SETPIPE_SZ, 2 * kWide), 2 * kWide);
  widenPipe(ends_[1]);
  EXPECT_EQ(capacity(), 2 * kWide);
}

TEST(WidenPipeOfAFile, DoesNothing) {
  const tests::TemporaryDirectory directory;
  const int file = open((directory.path() / "file").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  widenPipe(file);
  EXPECT_EQ(write(file, "a", 1), 1);
  close(file);
  widenPipe(-1);
}

}  // namespace
}  // namespace kelm::platform
