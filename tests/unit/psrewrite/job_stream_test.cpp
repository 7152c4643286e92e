// The stream of the job's PostScript: block input, line readers, output.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/job_stream.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "tests/support/memory_job.hpp"

namespace kelm::psrewrite {
namespace {

// A stream over `bytes` in reads of at most `blockSize`, with its output in memory.
struct Reading {
  explicit Reading(std::string_view bytes, std::size_t blockSize = 1U << 20U)
      : source(bytes, blockSize), stream(source, output.stream()) {}

  // The next line as readLine stores it.
  std::string line(std::size_t limit = LineBuffer::kSize) {
    std::string text(limit, '?');
    text.resize(static_cast<std::size_t>(readLine(stream, text.data(), limit)));
    return text;
  }

  tests::MemorySource source;
  tests::MemoryOutput output;
  JobStream stream;
};

TEST(LineBuffer, IsEmptyAtFirstAndAfterClearing) {
  LineBuffer line;
  EXPECT_STREQ(line.text(), "");
  line.overwrite("text");
  line.clear();
  EXPECT_EQ(std::string(line.text(), LineBuffer::kSize), std::string(LineBuffer::kSize, '\0'));
}

TEST(LineBuffer, HasRoomForATerminatorAfterAFullLine) {
  LineBuffer line;
  std::memset(line.data(), 'x', LineBuffer::kSize);
  line.terminate(LineBuffer::kSize);
  EXPECT_EQ(std::strlen(line.text()), LineBuffer::kSize);
}

TEST(LineBuffer, OverwritesItsFrontAndEndsThere) {
  LineBuffer line;
  line.overwrite("a longer text");
  line.overwrite("short");
  EXPECT_STREQ(line.text(), "short");
  EXPECT_STREQ(line.data() + 6, "er text");
}

TEST(LineBuffer, ContainsWhatStandsBeforeAZeroByte) {
  LineBuffer line;
  std::memcpy(line.data(), "abc\0def", 7);
  EXPECT_TRUE(line.contains("bc"));
  EXPECT_FALSE(line.contains("def"));
}

TEST(ReadLine, KeepsTheLineFeed) {
  Reading input("one\ntwo\n");
  EXPECT_EQ(input.line(), "one\n");
  EXPECT_EQ(input.line(), "two\n");
}

TEST(ReadLine, StoresNothingAtTheEnd) {
  Reading input("");
  EXPECT_EQ(input.line(), "");
  EXPECT_EQ(input.line(), "");
}

TEST(ReadLine, GivesALastLineWithoutLineFeed) {
  Reading input("one\nlast");
  input.line();
  EXPECT_EQ(input.line(), "last");
  EXPECT_EQ(input.line(), "");
}

TEST(ReadLine, GivesAnEmptyLineAsItsLineFeed) {
  Reading input("\n\nx");
  EXPECT_EQ(input.line(), "\n");
  EXPECT_EQ(input.line(), "\n");
  EXPECT_EQ(input.line(), "x");
}

TEST(ReadLine, WritesNoTerminator) {
  Reading input("ab\n");
  char buffer[] = "??????";
  EXPECT_EQ(readLine(input.stream, buffer, sizeof buffer), 3);
  EXPECT_STREQ(buffer, "ab\n???");
}

TEST(ReadLine, TakesZeroBytesAndCarriageReturnsAsTheyAre) {
  const std::string bytes("a\0b\rc\r\nrest", 11);
  Reading input(bytes);
  EXPECT_EQ(input.line(), std::string("a\0b\rc\r\n", 7));
  EXPECT_EQ(input.line(), "rest");
}

TEST(ReadLine, StopsAtItsLimitAndGoesOnThere) {
  Reading input("abcdef\nx");
  EXPECT_EQ(input.line(4), "abcd");
  EXPECT_EQ(input.line(4), "ef\n");
  EXPECT_EQ(input.line(1), "x");
}

TEST(ReadLine, TakesALineFeedThatJustFits) {
  Reading input("abc\ndef");
  EXPECT_EQ(input.line(4), "abc\n");
  EXPECT_EQ(input.line(3), "def");
}

TEST(ReadLine, CutsLinesAt4096Bytes) {
  for (const std::size_t length : {4095U, 4096U, 4097U, 10000U}) {
    const std::string text = std::string(length, 'x') + '\n';
    Reading input(text);
    std::string joined;
    for (std::size_t left = text.size(); left > 0; left = text.size() - joined.size()) {
      const std::string piece = input.line();
      EXPECT_EQ(piece.size(), std::min<std::size_t>(left, 4096)) << length;
      joined += piece;
      ASSERT_FALSE(piece.empty());
    }
    EXPECT_EQ(joined, text);
  }
}

TEST(ReadLine, DoesNotDependOnTheSizeOfReads) {
  const std::string text = "one\n" + std::string(5000, 'y') + "\r\n\n" + std::string("\0\n", 2);
  for (const std::size_t block : {1U, 2U, 3U, 4095U, 4096U, 4097U}) {
    Reading input(text, block);
    EXPECT_EQ(input.line(), "one\n");
    EXPECT_EQ(input.line(), std::string(4096, 'y'));
    EXPECT_EQ(input.line(), std::string(904, 'y') + "\r\n");
    EXPECT_EQ(input.line(), "\n");
    EXPECT_EQ(input.line(), std::string("\0\n", 2));
    EXPECT_EQ(input.line(), "");
  }
}

TEST(Fgetline, TakesTheLineFeedOff) {
  Reading input("one\ntwo");
  char buffer[16];
  EXPECT_EQ(fgetline(input.stream, buffer, sizeof buffer), buffer);
  EXPECT_STREQ(buffer, "one");
  EXPECT_STREQ(fgetline(input.stream, buffer, sizeof buffer), "two");
}

TEST(Fgetline, IsNullAtTheEnd) {
  Reading input("");
  char buffer[16] = "as it was";
  EXPECT_EQ(fgetline(input.stream, buffer, sizeof buffer), nullptr);
}

TEST(Fgetline, GivesAnEmptyLine) {
  Reading input("\n");
  char buffer[16];
  EXPECT_STREQ(fgetline(input.stream, buffer, sizeof buffer), "");
  EXPECT_EQ(fgetline(input.stream, buffer, sizeof buffer), nullptr);
}

TEST(Fgetline, KeepsACarriageReturn) {
  Reading input("one\r\n");
  char buffer[16];
  EXPECT_STREQ(fgetline(input.stream, buffer, sizeof buffer), "one\r");
}

TEST(Fgetline, ReadsOneByteLessThanItsSize) {
  Reading input("abcdef\n");
  char buffer[4];
  EXPECT_STREQ(fgetline(input.stream, buffer, sizeof buffer), "abc");
  EXPECT_STREQ(fgetline(input.stream, buffer, sizeof buffer), "def");
  EXPECT_STREQ(fgetline(input.stream, buffer, sizeof buffer), "");
}

TEST(Gets, KeepsTheLineFeedAndTerminates) {
  Reading input("one\ntwo");
  char buffer[16];
  EXPECT_STREQ(input.stream.gets(buffer, sizeof buffer), "one\n");
  EXPECT_STREQ(input.stream.gets(buffer, sizeof buffer), "two");
}

TEST(Gets, LeavesTheBufferAtTheEnd) {
  Reading input("");
  char buffer[] = "as it was";
  EXPECT_EQ(input.stream.gets(buffer, sizeof buffer), nullptr);
  EXPECT_STREQ(buffer, "as it was");
}

TEST(Gets, CutsALineOf4095BytesBeforeItsLineFeed) {
  const std::string text(4095, 'x');
  const std::string bytes = text + "\n";
  Reading input(bytes);
  char buffer[LineBuffer::kSize];
  EXPECT_EQ(input.stream.gets(buffer, sizeof buffer), text);
  EXPECT_STREQ(input.stream.gets(buffer, sizeof buffer), "\n");
}

TEST(JobStream, GivesEveryByteAsAPositiveNumberThenTheEnd) {
  Reading input(std::string_view("a\0\xFF", 3), 1);
  EXPECT_EQ(input.stream.get(), 'a');
  EXPECT_EQ(input.stream.get(), 0);
  EXPECT_EQ(input.stream.get(), 0xFF);
  EXPECT_EQ(input.stream.get(), EOF);
  EXPECT_EQ(input.stream.get(), EOF);
}

TEST(JobStream, ShowsWhatIsReadUntilItIsConsumed) {
  Reading input("abcdef", 3);
  EXPECT_EQ(input.stream.window().size(), 3U);
  input.stream.consume(2);
  EXPECT_EQ(input.stream.window().front(), 'c');
  input.stream.consume(1);
  EXPECT_EQ(input.stream.window().front(), 'd');
  input.stream.consume(3);
  EXPECT_TRUE(input.stream.window().empty());
}

TEST(JobStream, PassesTheFrontOfTheWindowOn) {
  Reading input("abcdef");
  EXPECT_EQ(input.stream.window().size(), 6U);
  input.stream.pass(4);
  EXPECT_EQ(input.output.text(), "abcd");
  EXPECT_EQ(input.line(), "ef");
}

// A source that gives more after its end, as a terminal can.
class TwoEnds final : public base::ByteSource {
 public:
  std::size_t read(std::span<char> room) override {
    room.front() = 'x';
    return ++reads_ == 1 ? 0 : 1;
  }

 private:
  int reads_ = 0;
};

TEST(JobStream, StaysAtTheEndOnceItIsThere) {
  TwoEnds source;
  tests::MemoryOutput output;
  JobStream stream(source, output.stream());
  EXPECT_EQ(stream.get(), EOF);
  EXPECT_EQ(stream.get(), EOF);
}

TEST(JobStream, KeepsTheOrderOfShortAndLongRuns) {
  tests::MemorySource source("");
  std::FILE* file = std::tmpfile();
  base::DescriptorSink direct(fileno(file), {});
  JobStream stream(source, file, &direct);
  const std::string longRun(200'000, 'l');
  stream.write("before ");
  stream.write(longRun);
  stream.write(" after");
  std::fflush(file);
  std::rewind(file);
  std::string content(longRun.size() + 100, '\0');
  content.resize(std::fread(content.data(), 1, content.size(), file));
  std::fclose(file);
  EXPECT_EQ(content, "before " + longRun + " after");
}

TEST(JobStream, WritesZeroBytes) {
  Reading input("");
  input.stream.write(std::string_view("a\0b", 3));
  EXPECT_EQ(input.output.text(), std::string("a\0b", 3));
}

}  // namespace
}  // namespace kelm::psrewrite
