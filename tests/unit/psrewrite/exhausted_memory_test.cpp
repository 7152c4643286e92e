// No line is written in part when memory is exhausted.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>

#include "psrewrite/features.hpp"
#include "psrewrite/line_rewriters.hpp"
#include "psrewrite/line_tools.hpp"
#include "tests/support/failing_memory.hpp"
#include "tests/unit/psrewrite/written.hpp"

namespace kelm::psrewrite {
namespace {

constexpr std::size_t kLimit = 1U << 20U;
constexpr std::size_t kBeyond = 2U << 20U;

// What `write` makes of `input` when each allocation of more than `limit` bytes fails.
template <class Write>
Written underLimit(std::size_t limit, std::string_view input, const Write& write) {
  return writtenFrom(input, [&](JobStream& stream, LineBuffer& line) {
    const tests::ScopedMemoryLimit scope(limit);
    return write(stream, line);
  });
}

TEST(ScopedMemoryLimit, RefusesMoreThanTheLimitWhileItLives) {
  const auto fill = [](std::size_t size) { return std::string(size, 'x').size(); };
  {
    const tests::ScopedMemoryLimit scope(kLimit);
    EXPECT_THROW(fill(kBeyond), std::bad_alloc);
    EXPECT_EQ(fill(kLimit / 2), kLimit / 2);
  }
  EXPECT_EQ(fill(kBeyond), kBeyond);
}

TEST(ExhaustedMemory, LeavesReplaceStrWithNothing) {
  const std::string value(kBeyond, 'v');
  const tests::ScopedMemoryLimit scope(kLimit);
  EXPECT_EQ(replace_str("(XXX)", "XXX", value.c_str()), std::nullopt);
}

TEST(ExhaustedMemory, LeavesEraseStrWithNothing) {
  const std::string value(kBeyond, 'v');
  std::string line = "(5) set\n";
  const tests::ScopedMemoryLimit scope(kLimit);
  EXPECT_EQ(erase_str(line, value), std::nullopt);
}

TEST(ExhaustedMemory, LosesThePlaceholderLine) {
  const std::string value(kBeyond, 'v');
  EXPECT_EQ(underLimit(kLimit, "(XXX)\nnext\n",
                       [&](JobStream& stream, LineBuffer& line) {
                         return outputReplacingValue(stream, line, nullptr, value.c_str());
                       }),
            (Written{false, "", "next\n"}));
}

TEST(ExhaustedMemory, LosesTheBracketLine) {
  const std::string value(kBeyond, 'v');
  EXPECT_EQ(underLimit(kLimit, "(5) set\nnext\n",
                       [&](JobStream& stream, LineBuffer& line) {
                         return readValueLine(stream, line) && writeWithValue(stream, line, value);
                       }),
            (Written{false, "", "next\n"}));
}

TEST(ExhaustedMemory, LosesTheLineOfACustomSize) {
  const std::string value(kBeyond, 'v');
  const auto size = [&](JobStream& stream, LineBuffer& line) {
    return outputFeatureByCustomSizeValue(stream, line, value.c_str());
  };
  const auto flag = [&](JobStream& stream, LineBuffer& line) {
    return outputFeatureByCustomSizeValueFLG(stream, line, value.c_str());
  };
  EXPECT_EQ(underLimit(kLimit, "(XXX)\nnext\n", size), (Written{false, "", "next\n"}));
  EXPECT_EQ(underLimit(kLimit, "(Auto)\nnext\n", flag), (Written{false, "", "next\n"}));
}

TEST(ExhaustedMemory, MakesTheTitleRewritersMinusOne) {
  const std::string value(kBeyond, 'v');
  const auto write = [&](JobStream& stream, LineBuffer&) {
    return outputFeatureByCustomSizeTitle(stream, "FaceUp", "FaceUp", value.c_str()) == -1 &&
           outputFeatureByCustomSizeValueTitle(stream, "FaceUp", "FaceUp", value.c_str()) == -1;
  };
  EXPECT_EQ(underLimit(kLimit, "", write), (Written{true, "", ""}));
}

// A line that a string of 100 bytes cannot hold.
const std::string kLandscapeLine = "(Landscape) " + std::string(200, 'x') + "\n";
constexpr std::size_t kLessThanALine = 100;

TEST(ExhaustedMemory, LeavesTheOrientationLineUnchanged) {
  tests::TestJob job(tests::TestJob::Options{{"QVOrientation", "0"}});
  const auto write = [&](JobStream& stream, LineBuffer& line) {
    return outputQVOrientation(stream, line, *job);
  };
  EXPECT_EQ(underLimit(kLessThanALine, kLandscapeLine, write), (Written{true, kLandscapeLine, ""}));
}

TEST(ExhaustedMemory, LeavesTheLineOfACustomOrientationUnchanged) {
  const auto write = [](JobStream& stream, LineBuffer& line) {
    return outputQVCustomOrientation(stream, line, true);
  };
  EXPECT_EQ(underLimit(kLessThanALine, kLandscapeLine, write), (Written{true, kLandscapeLine, ""}));
}

TEST(ExhaustedMemory, LosesABracketLineThatItselfDoesNotFit) {
  tests::TestJob job(tests::TestJob::Options{{"PrintPDE", ""}});
  const auto write = [&](JobStream& stream, LineBuffer& line) {
    return outputQVPageNumStartNum(stream, line, *job);
  };
  EXPECT_EQ(underLimit(kLessThanALine, kLandscapeLine + "next\n", write),
            (Written{false, "", "next\n"}));
}

}  // namespace
}  // namespace kelm::psrewrite
