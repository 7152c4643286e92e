// Findings on their way from the asker's thread to the service's.
#pragma once

#include <mutex>
#include <vector>

#include "wolservice/asker.hpp"

namespace kelm::wolservice {

class FindingQueue {
 public:
  // Without a descriptor left on the system, descriptor() is negative and the queue is of no use.
  FindingQueue();
  ~FindingQueue();
  FindingQueue(const FindingQueue&) = delete;
  FindingQueue& operator=(const FindingQueue&) = delete;

  // Readable while there are findings; for poll(2).
  int descriptor() const { return descriptor_; }

  // May be called from any thread.
  void put(const Finding& finding);

  // All findings since the last call, in their order.
  std::vector<Finding> takeAll();

 private:
  int descriptor_;
  std::mutex mutex_;
  std::vector<Finding> findings_;
};

}  // namespace kelm::wolservice
