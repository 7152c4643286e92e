// KelmWoLServices: started by the system bus when a job is to wake a printer.
// SPDX-License-Identifier: Apache-2.0
#include <csignal>
#include <cstdint>
#include <cstdio>

#include "platform/out_of_memory.hpp"
#include "platform/standard_streams.hpp"
#include "snmp/bracketed_address.hpp"
#include "snmp/qv_snmp_helper.hpp"
#include "wolservice/service.hpp"

const std::string_view kelm::platform::kOutOfMemory = "KelmWoLServices: out of memory\n";

namespace {

constexpr int kExitUsage = 2;

// Any answer, even an error, means that the printer is awake.
bool answers(const std::string& address, const std::string& community) {
  std::int32_t sleepMode = 0;
  return kelm::snmp::QVSNMPHelper::getSleepMode_community_sleepMode_(
             kelm::snmp::bracketed(address).c_str(), community.c_str(), &sleepMode) == 0;
}

// The service's event loop waits for these signals.
void blockSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGCHLD);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
}

}  // namespace

int main(int argc, char* argv[]) {
  kelm::platform::openStandardStreams();
  if (argc != 1) {
    std::fprintf(stderr, "Usage: %s (no arguments; the system bus starts it)\n", argv[0]);
    return kExitUsage;
  }
  blockSignals();
  return kelm::wolservice::Service(answers).run();
}
