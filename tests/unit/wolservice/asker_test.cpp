// The thread that asks printers whether they are awake.
#include "wolservice/asker.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace kelm::wolservice {
namespace {

using ::testing::ElementsAre;
using namespace std::chrono_literals;

constexpr int kNever = 1'000'000;

// Printers that answer after a number of questions in vain.
class AskerTest : public ::testing::Test {
 protected:
  using Lock = std::unique_lock<std::mutex>;

  PrinterQueries queries() {
    return {.locate = [this](const std::string& address) -> std::optional<sockaddr_storage> {
              const Lock lock(mutex_);
              located_.push_back(address);
              if (address == "unknown") return std::nullopt;
              return sockaddr_storage{};
            },
            .answers =
                [this](const std::string& address, const std::string& community) {
                  const Lock lock(mutex_);
                  asked_.push_back(address + "/" + community);
                  changed_.notify_all();
                  return --silences_[address] == -1;
                }};
  }

  void note(const Finding& finding) {
    const Lock lock(mutex_);
    findings_.push_back(std::to_string(finding.number) + (finding.location ? " found" : " awake"));
    changed_.notify_all();
  }

  // Waits until there are as many findings, or for a second.
  std::vector<std::string> findings(std::size_t count) {
    Lock lock(mutex_);
    changed_.wait_for(lock, 1s, [&] { return findings_.size() >= count; });
    return findings_;
  }

  std::vector<std::string> asked(std::size_t count) {
    Lock lock(mutex_);
    changed_.wait_for(lock, 1s, [&] { return asked_.size() >= count; });
    return asked_;
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::map<std::string, int> silences_;
  std::vector<std::string> located_;
  std::vector<std::string> asked_;
  std::vector<std::string> findings_;
  std::chrono::milliseconds interval_ = 1ms;
  std::optional<Asker> asker_;

  Asker& asker() {
    if (!asker_) {
      asker_.emplace(queries(), interval_, [this](const Finding& finding) { note(finding); });
    }
    return *asker_;
  }
};

TEST_F(AskerTest, AsksUntilThePrinterAnswers) {
  silences_["a"] = 3;
  asker().add({1, "a", "public", false});
  EXPECT_THAT(findings(1), ElementsAre("1 awake"));
  asker_.reset();
  EXPECT_THAT(asked_, ElementsAre("a/public", "a/public", "a/public", "a/public"));
}

TEST_F(AskerTest, LocatesOnceBeforeTheFirstQuestion) {
  silences_["a"] = 2;
  asker().add({1, "a", "public", true});
  EXPECT_THAT(findings(2), ElementsAre("1 found", "1 awake"));
  EXPECT_THAT(located_, ElementsAre("a"));
}

TEST_F(AskerTest, AsksAPrinterThatIsNotLocatedToo) {
  silences_["unknown"] = 0;
  asker().add({1, "unknown", "public", true});
  EXPECT_THAT(findings(1), ElementsAre("1 awake"));
}

TEST_F(AskerTest, AsksAllPrintersInTurn) {
  silences_["a"] = kNever;
  silences_["b"] = 5;
  asker().add({1, "a", "public", false});
  asker().add({2, "b", "other", false});
  EXPECT_THAT(findings(1), ElementsAre("2 awake"));
}

TEST_F(AskerTest, WaitsBetweenTwoQuestions) {
  silences_["a"] = 2;
  interval_ = 30ms;
  const auto start = std::chrono::steady_clock::now();
  asker().add({1, "a", "public", false});
  EXPECT_THAT(findings(1), ElementsAre("1 awake"));
  EXPECT_GE(std::chrono::steady_clock::now() - start, 60ms);
}

TEST_F(AskerTest, ForgetsARemovedPrinter) {
  silences_["a"] = kNever;
  asker().add({1, "a", "public", false});
  asked(2);
  asker().remove(1);
  {
    const Lock lock(mutex_);
    silences_["b"] = 5;
  }
  asker().add({2, "b", "public", false});
  EXPECT_THAT(findings(1), ElementsAre("2 awake"));
  const Lock lock(mutex_);
  EXPECT_EQ(asked_.back(), "b/public");
}

TEST_F(AskerTest, EndsWhileAPrinterIsStillSilent) {
  silences_["a"] = kNever;
  interval_ = 1h;
  asker().add({1, "a", "public", false});
  EXPECT_THAT(asked(1), ElementsAre("a/public"));
  asker_.reset();
}

}  // namespace
}  // namespace kelm::wolservice
