// The shape of the PPD's code lines, and the limits of the file's text.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <string_view>

#include "tests/unit/ppd/description.hpp"

namespace kelm::tests {
namespace {

std::string tailOf(const std::string& keyword) { return "userdict exch /" + keyword + " exch put"; }

// The code lines of two options ask the page device for its size.
bool asksThePage(const std::string& keyword) { return keyword.starts_with("QVPAGESize"); }

TEST(CodeLine, StoresOneStringUnderTheOptionsKeyword) {
  const Description description;
  for (const Option* option : description.printerOptions()) {
    for (const Choice& choice : option->choices) {
      EXPECT_TRUE(choice.code.ends_with(" " + tailOf(option->keyword)))
          << option->keyword << " " << choice.name << ": " << choice.code;
      EXPECT_EQ(std::string::npos, choice.code.find('\n')) << option->keyword;
    }
  }
}

TEST(CodeLine, BeginsWithItsOnlyParentheses) {
  const Description description;
  for (const Option* option : description.printerOptions()) {
    for (const Choice& choice : option->choices) {
      if (choice.custom && choice.code.starts_with("20 string cvs ")) continue;  // a custom number
      EXPECT_EQ('(', choice.code.front()) << option->keyword;
      EXPECT_EQ(1, std::ranges::count(choice.code, '(')) << option->keyword;
      EXPECT_EQ(1, std::ranges::count(choice.code, ')')) << option->keyword;
    }
  }
}

// If the filter does not fill in the string, the string states the choice: its name, the number
// that it means, a font's name in hex, or nothing.
TEST(CodeLine, SaysItsChoiceUnlessTheFilterFillsIt) {
  const Description description;
  for (const Option* option : description.printerOptions()) {
    for (const Choice& choice : option->choices) {
      if (choice.custom || asksThePage(option->keyword)) continue;
      using testing::AnyOf;
      using testing::StartsWith;
      if (option->keyword == "QVZoomRate") {
        EXPECT_THAT(choice.code, StartsWith("(100) "));
      } else if (choice.name == "ArialMT") {
        EXPECT_THAT(choice.code, StartsWith("(417269616C4D54) "));
      } else {
        EXPECT_THAT(choice.code, AnyOf(StartsWith("(" + choice.name + ") "), StartsWith("(XXX) "),
                                       StartsWith("() ")))
            << option->keyword;
      }
    }
  }
}

// A longer line makes CUPS ignore the whole file, and so does a longer keyword.
TEST(PpdText, KeepsTheLimitsOfCups) {
  std::ifstream file(kDialogModel);
  std::string line;
  std::size_t number = 0;
  while (std::getline(file, line)) {
    ++number;
    EXPECT_LE(line.size(), 254U) << "line " << number;
    if (!line.starts_with('*') || line.starts_with("*%")) continue;
    const std::size_t end = line.find_first_of(" :/");
    EXPECT_LE(end - 1, 40U) << "line " << number;
  }
  EXPECT_GT(number, 4000U);
}

TEST(PpdText, ChoicesHaveAtMost40AndLabelsAtMost80Bytes) {
  std::ifstream file(kDialogModel);
  std::string line;
  while (std::getline(file, line)) {
    if (!line.starts_with('*') || line.starts_with("*%")) continue;
    const std::size_t blank = line.find(' ');
    const std::size_t slash = line.find('/');
    const std::size_t colon = line.find(':');
    if (slash >= colon || blank >= slash) continue;
    EXPECT_LE(slash - blank - 1, 40U) << line;
    EXPECT_LE(colon - slash - 1, 80U) << line;
  }
}

}  // namespace
}  // namespace kelm::tests
