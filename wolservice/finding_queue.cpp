// Findings on their way from the asker's thread to the service's.
#include "wolservice/finding_queue.hpp"

#include <sys/eventfd.h>
#include <unistd.h>

#include <utility>

namespace kelm::wolservice {

FindingQueue::FindingQueue() : descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

FindingQueue::~FindingQueue() {
  if (descriptor_ >= 0) close(descriptor_);
}

void FindingQueue::put(const Finding& finding) {
  const std::lock_guard lock(mutex_);
  findings_.push_back(finding);
  eventfd_write(descriptor_, 1);
}

std::vector<Finding> FindingQueue::takeAll() {
  const std::lock_guard lock(mutex_);
  eventfd_t count = 0;
  eventfd_read(descriptor_, &count);
  return std::exchange(findings_, {});
}

}  // namespace kelm::wolservice
