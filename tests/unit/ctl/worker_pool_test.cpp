// Work in parallel processes.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/worker_pool.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <vector>

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

void waitForAll(WorkerPool& pool) {
  const auto end = Clock::now() + 30s;
  while (!pool.isIdle() && Clock::now() < end) pool.wait(100ms);
  ASSERT_TRUE(pool.isIdle());
}

TEST(WorkerPool, HandsBackResultsOfAnySize) {
  WorkerPool pool(3);
  std::vector<std::size_t> sizes(3);
  for (const std::size_t index : {0U, 1U, 2U}) {
    pool.start([index] { return std::string(index * 300'000 + 1, 'x'); },
               [&sizes, index](const std::optional<std::string>& result) {
                 sizes[index] = result ? result->size() : 0;
               });
  }
  EXPECT_TRUE(pool.isFull());
  waitForAll(pool);
  EXPECT_EQ(sizes, (std::vector<std::size_t>{1, 300'001, 600'001}));
}

TEST(WorkerPool, WorksSideBySide) {
  WorkerPool pool(20);
  int count = 0;
  const auto start = Clock::now();
  for (int i = 0; i < 20; ++i) {
    pool.start([] { return usleep(500'000), std::string("x"); },
               [&count](const std::optional<std::string>& result) { count += result ? 1 : 0; });
  }
  waitForAll(pool);
  EXPECT_EQ(count, 20);
  EXPECT_LT(Clock::now() - start, 8s);  // it takes 10 s one after the other
}

TEST(WorkerPool, StartsFurtherWorkWhenAPieceEnds) {
  WorkerPool pool(2);
  std::string received;
  for (const char* name : {"a", "b"}) {
    pool.start([name] { return std::string(name); },
               [&](const std::optional<std::string>& first) {
                 pool.start([first] { return *first + "2"; },
                            [&](const std::optional<std::string>& second) { received += *second; });
               });
  }
  waitForAll(pool);
  std::sort(received.begin(), received.end());
  EXPECT_EQ(received, "22ab");
}

TEST(WorkerPool, SaysWhenAProcessDied) {
  WorkerPool pool(1);
  std::optional<std::string> result = "none";
  pool.start([] { return raise(SIGKILL), std::string("x"); },
             [&result](const std::optional<std::string>& each) { result = each; });
  waitForAll(pool);
  EXPECT_EQ(result, std::nullopt);
}

TEST(WorkerPool, ReturnsEarlyWhenAnotherDescriptorIsReadable) {
  WorkerPool pool(1);
  bool isOver = false;
  pool.start([] { return sleep(100), std::string("x"); },
             [&isOver](const std::optional<std::string>&) { isOver = true; });
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  ASSERT_EQ(write(ends[1], "x", 1), 1);
  const auto start = Clock::now();
  pool.wait(30s, ends[0]);
  EXPECT_LT(Clock::now() - start, 20s);
  EXPECT_FALSE(isOver);
  close(ends[0]);
  close(ends[1]);
}

TEST(WorkerPool, EndsItsProcessesWithItself) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  {
    WorkerPool pool(1);
    pool.start([] { return sleep(100), std::string("x"); },
               [](const std::optional<std::string>&) {});
  }
  close(ends[1]);
  char byte = 0;
  EXPECT_EQ(read(ends[0], &byte, 1), 0);  // the process kept the other end open
  close(ends[0]);
}

}  // namespace
}  // namespace kelm::ctl
