// The PPD's conflicts, as a dialog finds them.
// SPDX-License-Identifier: Apache-2.0
#include <cups/ppd.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/unit/ppd/description.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::tests {
namespace {

using Choices = std::vector<std::pair<const char*, const char*>>;

// An option's name, or that name, a space and one of its choices.
using Side = std::string;
using Constraints = std::multiset<std::pair<Side, Side>>;

constexpr std::array kEnvelopes = {
    "Kaku0", "Kaku1", "Kaku2", "Kaku3",     "Naga3",     "Naga4",        "C4",
    "C5",    "C6",    "DLR",   "Envelope1", "Envelope2", "No10envelope",
};
constexpr std::array kStackers = {"Stacker", "AutoStacker", "WideStacker", "HighCapacityStacker"};

// Each of `ones` with each of `others`.
void add(Constraints& constraints, const std::vector<Side>& ones, const std::vector<Side>& others) {
  for (const Side& one : ones) {
    for (const Side& other : others) constraints.emplace(one, other);
  }
}

template <class Names>
std::vector<Side> choices(const std::string& option, const Names& names) {
  std::vector<Side> sides;
  for (const char* name : names) sides.push_back(option + " " + name);
  return sides;
}

// "*OPTION CHOICE *OPTION CHOICE", where CHOICE may be missing
std::pair<Side, Side> sidesOf(std::string text) {
  const std::size_t second = text.rfind('*');
  return {text.substr(1, second - 2), text.substr(second + 1)};
}

TEST(Constraints, AreTheseAndNoOther) {
  Constraints expected;
  add(expected, {"QVBooklet"}, {"QVMultiUp", "QVMultiUpSinglePage"});
  add(expected, {"QVMultiUp"}, {"QVMultiUpSinglePage"});
  add(expected, {"QVBookletBinding"},
      {"Duplex DuplexNoTumble", "QVDuplex LongEdge", "QVStapleMode", "QVPunchMode", "QVFoldMode",
       "QVMultiUp", "QVMultiUpSinglePage"});
  add(expected, {"QVFoldMode Fold2", "QVFoldMode FoldInner3", "QVFoldMode FoldOuter3"},
      {"QVStapleMode", "QVPunchMode"});
  add(expected, choices("QVOutputTray", kStackers), {"QVOutputFace FaceDown"});
  add(expected, choices("OutputBin", kStackers), {"QVOutputFace FaceDown"});
  for (const char* paper : {"PageSize", "QVTargetPaperSize"}) {
    add(expected, choices(paper, kEnvelopes),
        {"QVStapleMode", "QVPunchMode", "QVFoldMode", "QVBooklet", "QVBookletBinding"});
  }

  const Description description;
  Constraints found;
  for (const ppd_attr_t* each = ppdFindAttr(description.ppd(), "cupsUIConstraints", nullptr);
       each != nullptr; each = ppdFindNextAttr(description.ppd(), "cupsUIConstraints", nullptr)) {
    found.insert(sidesOf(each->value));
  }
  EXPECT_EQ(expected, found);
}

// In constraints of the old form, LibreOffice reads an omitted choice as any choice except None and
// False. With a default of OFF it would offer no envelope and no binding at the long edge.
TEST(Constraints, OfTheOldFormAreNone) {
  EXPECT_EQ(0, Description(kDialogModel).ppd()->num_consts);
  EXPECT_EQ(0, Description(kDefaultModel).ppd()->num_consts);
}

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

TEST_F(Conflicts, ComeFromNoChoiceAlone) {
  std::set<std::string> alone;
  for (const Option& option : description_.options()) {
    for (const Choice& choice : option.choices) {
      if (choice.custom) continue;
      if (among({{option.keyword.c_str(), choice.name.c_str()}}) > 0) {
        alone.insert(option.keyword + " " + choice.name);
      }
    }
  }
  EXPECT_THAT(alone, testing::IsEmpty());
}

// A finished booklet flips on the short edge.
TEST_F(Conflicts, AreBetweenAFinishedBookletAndTheLongEdge) {
  EXPECT_EQ(among({{"QVBookletBinding", "FoldStaple"}, {"QVDuplex", "ShortEdge"}}), 0);
  EXPECT_EQ(among({{"QVBookletBinding", "FoldStaple"}, {"Duplex", "DuplexTumble"}}), 0);
  EXPECT_EQ(among({{"QVBookletBinding", "FoldStaple"}, {"QVDuplex", "LongEdge"}}), 1);
  EXPECT_EQ(among({{"QVBookletBinding", "FoldStaple"}, {"Duplex", "DuplexNoTumble"}}), 1);
}

TEST_F(Conflicts, AreBetweenABookletAndSeveralPagesPerSheet) {
  EXPECT_EQ(among({{"QVBooklet", "LeftBinding"}, {"QVMultiUp", "2PagesLeftRight"}}), 1);
}

TEST_F(Conflicts, AreBetweenEveryStackerAndFaceDown) {
  for (const char* tray : kStackers) {
    EXPECT_EQ(among({{"QVOutputTray", tray}, {"QVOutputFace", "FaceDown"}}), 1) << tray;
    EXPECT_EQ(among({{"QVOutputTray", tray}, {"QVOutputFace", "FaceUp"}}), 0) << tray;
    EXPECT_EQ(among({{"OutputBin", tray}, {"QVOutputFace", "FaceDown"}}), 1) << tray;
  }
}

TEST_F(Conflicts, AreBetweenAnEnvelopeAndAStaple) {
  EXPECT_EQ(among({{"PageSize", "C5"}, {"QVStapleMode", "OneStaple"}}), 1);
  EXPECT_EQ(among({{"QVTargetPaperSize", "C5"}, {"QVStapleMode", "OneStaple"}}), 1);
  EXPECT_EQ(among({{"QVTargetPaperSize", "A4"}, {"QVStapleMode", "OneStaple"}}), 0);
}

TEST_F(Conflicts, LeaveAZFoldItsStapleAndItsHoles) {
  EXPECT_EQ(among({{"QVFoldMode", "ZFold"}, {"QVStapleMode", "OneStaple"}}), 0);
  EXPECT_EQ(among({{"QVFoldMode", "ZFold"}, {"QVPunchMode", "TwoHoles"}}), 0);
  EXPECT_EQ(among({{"QVFoldMode", "Fold2"}, {"QVPunchMode", "TwoHoles"}}), 1);
}

}  // namespace
}  // namespace kelm::tests
