// Findings on their way from one thread to another.
#include "wolservice/finding_queue.hpp"

#include <gtest/gtest.h>
#include <poll.h>

#include <thread>

namespace kelm::wolservice {
namespace {

bool isReadable(const FindingQueue& queue) {
  pollfd source{queue.descriptor(), POLLIN, 0};
  return poll(&source, 1, 0) == 1;
}

TEST(FindingQueue, IsReadableWhileItHoldsSomething) {
  FindingQueue queue;
  EXPECT_FALSE(isReadable(queue));
  std::thread([&] { queue.put({7, std::nullopt}); }).join();
  EXPECT_TRUE(isReadable(queue));
  queue.takeAll();
  EXPECT_FALSE(isReadable(queue));
}

TEST(FindingQueue, GivesFindingsInTheirOrderAndOnce) {
  FindingQueue queue;
  queue.put({1, sockaddr_storage{}});
  queue.put({2, std::nullopt});
  const std::vector<Finding> found = queue.takeAll();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].number, 1);
  EXPECT_TRUE(found[0].location);
  EXPECT_EQ(found[1].number, 2);
  EXPECT_TRUE(queue.takeAll().empty());
}

}  // namespace
}  // namespace kelm::wolservice
