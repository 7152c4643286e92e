// Functions of the macOS platform that have the same names as those of the Linux platform. So they
// are tested in a program of their own.
// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>

#include "platform/out_of_memory.hpp"
#include "platform/pipe.hpp"

const std::string_view kelm::platform::kOutOfMemory = "test: out of memory\n";

namespace kelm::platform {
namespace {

TEST(MacosPipe, CarriesBytesAndIsNotInherited) {
  int ends[2] = {-1, -1};
  ASSERT_TRUE(openPipe(ends));
  for (const int end : ends) EXPECT_EQ(fcntl(end, F_GETFD), FD_CLOEXEC);
  EXPECT_EQ(write(ends[1], "ab", 2), 2);
  char bytes[3]{};
  EXPECT_EQ(read(ends[0], bytes, sizeof bytes), 2);
  EXPECT_STREQ(bytes, "ab");
  for (const int end : ends) close(end);
}

TEST(MacosPipe, IsNotMadeIfNoDescriptorIsLeft) {
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit none{0, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  int ends[2] = {-1, -1};
  EXPECT_FALSE(openPipe(ends));
  EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
}

TEST(MacosOutOfMemory, EndsTheProgramWithOneLine) {
  const volatile std::size_t tooMuch = PTRDIFF_MAX;
  EXPECT_EXIT(::operator delete(::operator new(tooMuch)), ::testing::ExitedWithCode(1),
              ::testing::StrEq("test: out of memory\n"));
}

}  // namespace
}  // namespace kelm::platform
