// Whole reads and writes over file descriptors.
// SPDX-License-Identifier: Apache-2.0
#include "base/byte_source.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

namespace kelm::base {
namespace {

class Pipe {
 public:
  explicit Pipe(int flags = 0) {
    EXPECT_EQ(pipe(ends_), 0);
    for (const int end : ends_) fcntl(end, F_SETFL, flags);
  }
  ~Pipe() {
    closeReader();
    closeWriter();
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  int reader() const { return ends_[0]; }
  int writer() const { return ends_[1]; }
  void closeReader() { closeEnd(ends_[0]); }
  void closeWriter() { closeEnd(ends_[1]); }

 private:
  static void closeEnd(int& end) {
    if (end >= 0) close(end);
    end = -1;
  }
  int ends_[2];
};

std::string readToEnd(int descriptor) {
  DescriptorSource source(descriptor);
  std::array<char, 1000> room{};
  std::string text;
  while (const std::size_t count = source.read(room)) text.append(room.data(), count);
  return text;
}

TEST(DescriptorSource, GivesTheBytesThatAreThere) {
  Pipe pipe;
  writeAll(pipe.writer(), std::string_view("a\0b", 3));
  std::array<char, 10> room{};
  EXPECT_EQ(DescriptorSource(pipe.reader()).read(room), 3U);
  EXPECT_EQ(std::string(room.data(), 3), std::string("a\0b", 3));
}

TEST(DescriptorSource, FillsNoMoreThanTheRoom) {
  Pipe pipe;
  writeAll(pipe.writer(), std::string_view("abc"));
  std::array<char, 2> room{};
  DescriptorSource source(pipe.reader());
  EXPECT_EQ(source.read(room), 2U);
  EXPECT_EQ(source.read(room), 1U);
  EXPECT_EQ(room[0], 'c');
}

TEST(DescriptorSource, GivesNothingAtTheEnd) {
  Pipe pipe;
  pipe.closeWriter();
  std::array<char, 2> room{};
  EXPECT_EQ(DescriptorSource(pipe.reader()).read(room), 0U);
}

TEST(DescriptorSource, EndsAtAReadError) {
  const int directory = open("/", O_RDONLY | O_CLOEXEC);
  std::array<char, 2> room{};
  DescriptorSource source(directory);
  EXPECT_EQ(source.error(), 0);
  EXPECT_EQ(source.read(room), 0U);
  EXPECT_EQ(source.error(), EISDIR);
  close(directory);
}

TEST(DescriptorSource, WaitsForAWriterOfANonBlockingPipe) {
  Pipe pipe(O_NONBLOCK);
  std::thread writer([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    writeAll(pipe.writer(), std::string_view("late"));
    pipe.closeWriter();
  });
  EXPECT_EQ(readToEnd(pipe.reader()), "late");
  writer.join();
}

TEST(DescriptorSource, IsNotOpenWithANegativeDescriptor) {
  EXPECT_FALSE(DescriptorSource(-1).isOpen());
  EXPECT_TRUE(DescriptorSource(STDIN_FILENO).isOpen());
}

TEST(DescriptorSource, DoesNotCloseItsDescriptor) {
  Pipe pipe;
  { const DescriptorSource source(pipe.reader()); }
  EXPECT_NE(fcntl(pipe.reader(), F_GETFD), -1);
}

TEST(DescriptorSource, ResumesAnInterruptedRead) {
  struct sigaction action {};
  struct sigaction before {};
  action.sa_handler = [](int) {};  // without SA_RESTART: a blocked read fails with EINTR
  sigaction(SIGUSR1, &action, &before);
  Pipe pipe;
  std::string text;
  std::thread reader([&] { text = readToEnd(pipe.reader()); });
  for (int i = 0; i < 5; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    pthread_kill(reader.native_handle(), SIGUSR1);
  }
  writeAll(pipe.writer(), std::string_view("after the signal"));
  pipe.closeWriter();
  reader.join();
  sigaction(SIGUSR1, &before, nullptr);
  EXPECT_EQ(text, "after the signal");
}

TEST(WriteAll, WritesMoreThanAPipeHolds) {
  Pipe pipe;
  const std::string text(1U << 20U, 'x');
  std::string received;
  std::thread reader([&] { received = readToEnd(pipe.reader()); });
  writeAll(pipe.writer(), text);
  pipe.closeWriter();
  reader.join();
  EXPECT_EQ(received, text);
}

TEST(WriteAll, GivesUpWithoutAReader) {
  const auto before = signal(SIGPIPE, SIG_IGN);
  Pipe pipe;
  pipe.closeReader();
  EXPECT_EQ(writeAll(pipe.writer(), std::string_view("lost")), EPIPE);
  signal(SIGPIPE, before);
}

TEST(WriteAll, WaitsForAReaderOfANonBlockingPipe) {
  Pipe pipe(O_NONBLOCK);
  const std::string text(1U << 20U, 'x');
  std::string received;
  std::thread reader([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    received = readToEnd(pipe.reader());
  });
  EXPECT_EQ(writeAll(pipe.writer(), text), 0);
  pipe.closeWriter();
  reader.join();
  EXPECT_EQ(received, text);
}

TEST(WriteAll, WritesNothingOfNothing) {
  Pipe pipe;
  writeAll(pipe.writer(), {});
  pipe.closeWriter();
  EXPECT_EQ(readToEnd(pipe.reader()), "");
}

TEST(DescriptorSink, ReportsTheFirstFailedWriteOnly) {
  const auto before = signal(SIGPIPE, SIG_IGN);
  Pipe pipe;
  std::string reports;
  DescriptorSink sink(pipe.writer(), [&](int error, std::uint64_t written) {
    reports += std::to_string(error) + " after " + std::to_string(written) + ";";
  });
  sink.write(std::string_view("abc"));
  sink.write(std::string_view("de"));
  EXPECT_EQ(reports, "");
  pipe.closeReader();
  sink.write(std::string_view("lost"));
  sink.write(std::string_view("lost too"));
  signal(SIGPIPE, before);
  EXPECT_EQ(reports, std::to_string(EPIPE) + " after 5;");
}

// The file may have 6 bytes, so only half of the second write succeeds.
TEST(DescriptorSink, CountsWhatWasWrittenOfAFailedWrite) {
  const auto before = signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit small{6, limit.rlim_max};
  std::FILE* const file = std::tmpfile();
  std::string reports;
  DescriptorSink sink(fileno(file), [&](int error, std::uint64_t written) {
    reports += std::to_string(error) + " after " + std::to_string(written) + ";";
  });
  setrlimit(RLIMIT_FSIZE, &small);
  sink.write(std::string_view("abcd"));
  sink.write(std::string_view("efgh"));
  setrlimit(RLIMIT_FSIZE, &limit);
  signal(SIGXFSZ, before);
  std::fclose(file);
  EXPECT_EQ(reports, std::to_string(EFBIG) + " after 6;");
}

}  // namespace
}  // namespace kelm::base
