// SIGINT and SIGTERM as requests for an orderly end.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/interruption.hpp"

namespace kelm::ctl {
namespace {

volatile std::sig_atomic_t isSignalled = 0;

void note(int /*signal*/) { isSignalled = 1; }

}  // namespace

Interruption::Interruption() {
  isSignalled = 0;
  struct sigaction action {};
  action.sa_handler = note;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigaction(SIGINT, &action, &previousInterrupt_);
  sigaction(SIGTERM, &action, &previousTermination_);
}

Interruption::~Interruption() {
  sigaction(SIGINT, &previousInterrupt_, nullptr);
  sigaction(SIGTERM, &previousTermination_, nullptr);
}

bool Interruption::isWanted() { return isSignalled != 0; }

}  // namespace kelm::ctl
