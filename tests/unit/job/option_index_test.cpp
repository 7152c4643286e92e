// Lookups by name among few and among many options of a job.
// SPDX-License-Identifier: Apache-2.0
#include "job/option_index.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "job/print_job.hpp"

namespace kelm::job {
namespace {

// Options "n0" to "n<count - 1>", whose names and values a test can change.
class Options {
 public:
  explicit Options(std::size_t count) : names_(count) {
    for (std::size_t i = 0; i < count; ++i) {
      names_[i] = "n" + std::to_string(i);
      array_.push_back({names_[i].data(), value_});
    }
  }
  std::vector<cups_option_t>& array() { return array_; }
  void rename(std::size_t i, const std::string& name) {
    names_[i] = name;
    array_[i].name = names_[i].data();
  }

 private:
  std::vector<std::string> names_;
  std::vector<cups_option_t> array_;
  char value_[6] = "value";
};

class OptionIndexOf : public testing::TestWithParam<std::size_t> {
 protected:
  Options options_{GetParam()};
  OptionIndex index_;
};

TEST_P(OptionIndexOf, FindsEveryNameAndNoOther) {
  const std::size_t count = GetParam();
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_EQ(index_.find(options_.array(), "n" + std::to_string(i)), i);
  }
  EXPECT_EQ(index_.find(options_.array(), "N0"), count);
  EXPECT_EQ(index_.find(options_.array(), "n"), count);
  EXPECT_EQ(index_.find(options_.array(), ""), count);
}

TEST_P(OptionIndexOf, FindsTheFirstOfEqualNames) {
  options_.rename(7, "twice");
  options_.rename(3, "twice");
  EXPECT_EQ(index_.find(options_.array(), "twice"), 3U);
}

TEST_P(OptionIndexOf, NoticesThatTheArrayGrowsOrShrinks) {
  EXPECT_EQ(index_.find(options_.array(), "more"), GetParam());
  char name[] = "more";
  options_.array().push_back({name, nullptr});
  EXPECT_EQ(index_.find(options_.array(), "more"), GetParam());
  options_.array().pop_back();
  options_.array().erase(options_.array().begin());
  EXPECT_EQ(index_.find(options_.array(), "n1"), 0U);
  EXPECT_EQ(index_.find(options_.array(), "n0"), GetParam() - 1);
}

TEST_P(OptionIndexOf, NoticesThatAnOptionWentToAnotherPlace) {
  EXPECT_EQ(index_.find(options_.array(), "n5"), 5U);
  std::swap(options_.array()[5], options_.array()[2]);
  EXPECT_EQ(index_.find(options_.array(), "n5"), 2U);
}

TEST_P(OptionIndexOf, FindsANewNameOnceItForgot) {
  EXPECT_EQ(index_.find(options_.array(), "new"), GetParam());
  options_.rename(4, "new");
  index_.forget();
  EXPECT_EQ(index_.find(options_.array(), "new"), 4U);
}

INSTANTIATE_TEST_SUITE_P(All, OptionIndexOf, testing::Values(10, 63, 64, 65, 1000));

// Which of two equal names counts does not depend on the number of options.
TEST(OptionLookup, TakesTheFirstOptionThatHasAValueAmongMany) {
  for (const std::size_t count : {std::size_t{10}, std::size_t{1000}}) {
    Options options(count);
    options.rename(2, "twice");
    options.rename(6, "twice");
    options.array()[2].value = nullptr;
    PrintJobData job;
    job.options = options.array().data();
    job.numOptions = static_cast<int>(count);
    std::string value;
    EXPECT_TRUE(getOptionValue(&job, "twice", value));
    EXPECT_EQ(value, "value");
    EXPECT_EQ(findJobOption(&job, "twice"), &options.array()[2]);
    options.array()[6].value = nullptr;
    EXPECT_FALSE(getOptionValue(&job, "twice", value));
    EXPECT_EQ(value, "");
    EXPECT_EQ(findJobOption(&job, "once"), nullptr);
  }
}

}  // namespace
}  // namespace kelm::job
