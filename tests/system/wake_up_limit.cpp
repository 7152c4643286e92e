// The filter with a fake queue and a clock on which a second takes 20 ms. It prints on standard
// error how many steps it waited for the wake-up service.
// SPDX-License-Identifier: Apache-2.0
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

#include "filter/pipeline.hpp"
#include "platform/platform.hpp"

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

int main(int argc, char* argv[]) {
  FastClock clock;
  OneQueue queue;
  kelm::platform::Platform set = kelm::platform::platform();
  set.steadyClock = &clock;
  set.destinations = &queue;
  const kelm::platform::ScopedPlatform scope(set);
  const int status = kelm::filter::runFilter(argc, argv, stdout);
  std::fprintf(stderr, "%d\n", clock.sleeps);
  return status;
}
