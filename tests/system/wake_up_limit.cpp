// The filter's wake-up call on a real bus, with a clock on which a second takes 20 ms: prints how
// many steps it waited.
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

#include "platform/platform.hpp"
#include "tests/support/memory_ppd.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace {

class FastClock final : public kelm::platform::SteadyClock {
 public:
  std::chrono::nanoseconds now() override { return time_; }
  void sleep(std::chrono::nanoseconds time) override {
    ++sleeps;
    time_ += time;
    std::this_thread::sleep_for(time / 50);
  }
  int sleeps = 0;

 private:
  std::chrono::nanoseconds time_{};
};

class OneQueue final : public kelm::platform::Destinations {
 public:
  std::span<cups_dest_t> list() override { return {&destination_, 1}; }

 private:
  std::string name_ = "queue";
  std::string keyword_ = "device-uri";
  std::string uri_ = "lpd://192.0.2.9/";
  cups_option_t option_{keyword_.data(), uri_.data()};
  cups_dest_t destination_{name_.data(), nullptr, 0, 1, &option_};
};

}  // namespace

int main() {
  FastClock clock;
  OneQueue queue;
  kelm::platform::Platform set = kelm::platform::platform();
  set.steadyClock = &clock;
  set.destinations = &queue;
  const kelm::platform::ScopedPlatform scope(set);

  const kelm::tests::MemoryPpd ppd("*PrinterMacAddress: \"MDA6ODA6OTI6MTI6MzQ6NTY=\"\n");
  kelm::filter::PrintJobData job;
  job.ppd = ppd;
  std::string name = "queue";
  char* arguments[] = {name.data(), nullptr};
  kelm::wakeup::callWoLXPC(1, arguments, &job);
  std::printf("%d\n", clock.sleeps);
}
