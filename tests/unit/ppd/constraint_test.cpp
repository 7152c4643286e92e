// The PPD's conflicts, as a dialog finds them.
#include <cups/ppd.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tests/unit/ppd/description.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::tests {
namespace {

using Choices = std::vector<std::pair<const char*, const char*>>;

class Conflicts : public testing::Test {
 protected:
  // How many conflicts there are when these choices are made, with all others at their default.
  int among(const Choices& choices) {
    ppdMarkDefaults(description_.ppd());
    for (const auto& [option, choice] : choices) ppdMarkOption(description_.ppd(), option, choice);
    return ppdConflicts(description_.ppd());
  }

  Description description_;
};

TEST_F(Conflicts, AreNoneInTheDefaults) { EXPECT_EQ(among({}), 0); }

// A finished booklet needs two sides.
TEST_F(Conflicts, ComeFromOneChoiceAloneOnlyForAFinishedBooklet) {
  std::set<std::string> alone;
  for (const Option& option : description_.options()) {
    for (const Choice& choice : option.choices) {
      if (choice.custom) continue;
      if (among({{option.keyword.c_str(), choice.name.c_str()}}) > 0) {
        alone.insert(option.keyword + " " + choice.name);
      }
    }
  }
  EXPECT_THAT(alone,
              testing::ElementsAre("QVBookletBinding FoldStaple", "QVBookletBinding TwoFold"));
  EXPECT_EQ(among({{"QVBookletBinding", "FoldStaple"}, {"QVDuplex", "ShortEdge"}}), 0);
}

TEST_F(Conflicts, AreBetweenABookletAndSeveralPagesPerSheet) {
  EXPECT_EQ(among({{"QVBooklet", "LeftBinding"}, {"QVMultiUp", "2PagesLeftRight"}}), 1);
}

TEST_F(Conflicts, AreBetweenEveryStackerAndFaceDown) {
  for (const char* tray : {"Stacker", "AutoStacker", "WideStacker", "HighCapacityStacker"}) {
    EXPECT_EQ(among({{"QVOutputTray", tray}, {"QVOutputFace", "FaceDown"}}), 1) << tray;
    EXPECT_EQ(among({{"QVOutputTray", tray}, {"QVOutputFace", "FaceUp"}}), 0) << tray;
  }
}

TEST_F(Conflicts, AreBetweenAnEnvelopeAndAStaple) {
  EXPECT_EQ(among({{"PageSize", "C5"}, {"QVStapleMode", "OneStaple"}}), 1);
}

}  // namespace
}  // namespace kelm::tests
