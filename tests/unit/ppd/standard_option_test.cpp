// The PPD's standard options against the table that turns them into the printer's own.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "stdoptions/standard_choices.hpp"
#include "tests/unit/ppd/description.hpp"

namespace kelm::tests {
namespace {

using stdoptions::kStandardOptions;
using stdoptions::Source;
using stdoptions::StandardChoice;
using stdoptions::StandardOption;

TEST(StandardOptions, HaveARowForEveryChoiceOfThePpd) {
  const Description description;
  for (const StandardOption& standard : kStandardOptions) {
    if (standard.source != Source::kMarked) continue;
    const Option* option = description.find(standard.keyword);
    ASSERT_NE(nullptr, option) << standard.keyword;
    std::set<std::string> rows;
    for (const StandardChoice& row : standard.choices) rows.insert(row.choice);
    EXPECT_EQ(option->choiceNames(), rows) << standard.keyword;
  }
}

TEST(StandardOptions, MeanChoicesOfThePpd) {
  const Description description;
  for (const StandardOption& standard : kStandardOptions) {
    const Option* own = description.find(standard.own);
    ASSERT_NE(nullptr, own) << standard.own;
    for (const StandardChoice& row : standard.choices) {
      EXPECT_TRUE(own->hasChoice(row.value)) << standard.own << " " << row.value;
    }
  }
}

TEST(StandardOptions, AreNeutralByDefaultAndMeanTheOwnDefaultThen) {
  const Description description;
  for (const StandardOption& standard : kStandardOptions) {
    const StandardChoice& neutral = standard.choices.front();
    EXPECT_EQ(description.find(standard.own)->defaultChoice, neutral.value) << standard.keyword;
    if (standard.source != Source::kMarked) continue;
    EXPECT_EQ(description.find(standard.keyword)->defaultChoice, neutral.choice);
  }
}

// The filter writes the own option's section instead.
TEST(StandardOptions, TellThePrinterNothingThemselves) {
  const Description description;
  for (const StandardOption& standard : kStandardOptions) {
    if (standard.source != Source::kMarked) continue;
    for (const Choice& choice : description.find(standard.keyword)->choices) {
      EXPECT_EQ("", choice.code) << standard.keyword << " " << choice.name;
    }
  }
}

}  // namespace
}  // namespace kelm::tests
