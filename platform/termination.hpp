// Whether the process has been asked to end (SIGTERM), for waits that must not outlive their job.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::platform {

class Termination {
 public:
  virtual ~Termination() = default;

  // Once true, it stays so.
  virtual bool requested() = 0;
};

// Makes the operating system's Termination requested. May be called by a signal handler.
void noteTermination();

}  // namespace kelm::platform
