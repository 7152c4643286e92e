// A printer's answers, packed in one process and unpacked in another.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/facts_transfer.hpp"

#include <gtest/gtest.h>

namespace kelm::ctl {
namespace {

AskedPrinter sample() {
  AskedPrinter printer{"192.0.2.7", "advice", {}};
  printer.facts.answered = true;
  printer.facts.sleepMode = -7;
  printer.facts.macAddress = "";
  printer.facts.adminLoginModeEnabled = false;
  printer.facts.sharedBoxes = {{"1", std::string("a\0b", 3)}, {}};
  printer.facts.forms.emplace();
  printer.facts.leftOut = {"shared box 2"};
  return printer;
}

TEST(FactsTransfer, ArriveAsTheyWereSent) {
  const auto arrived = unpacked(packed(sample()));
  ASSERT_TRUE(arrived);
  EXPECT_EQ(arrived->address, "192.0.2.7");
  EXPECT_EQ(arrived->advice, "advice");
  const PrinterFacts& facts = arrived->facts;
  EXPECT_TRUE(facts.answered);
  EXPECT_EQ(facts.sleepMode, -7);
  EXPECT_EQ(facts.macAddress, "");
  EXPECT_EQ(facts.adminLoginModeEnabled, false);
  ASSERT_EQ(facts.sharedBoxes->size(), 2U);
  EXPECT_EQ(facts.sharedBoxes->front().name, std::string("a\0b", 3));
  EXPECT_TRUE(facts.sharedBoxes->back().isLeftOut());
  EXPECT_TRUE(facts.forms->empty());
  EXPECT_FALSE(facts.barcodeAreas);
  EXPECT_EQ(facts.leftOut, std::vector<std::string>{"shared box 2"});
}

TEST(FactsTransfer, NeedAllTheirBytesAndNoMore) {
  const std::string bytes = packed(sample());
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    EXPECT_FALSE(unpacked(std::string_view(bytes).substr(0, length))) << length;
  }
  EXPECT_FALSE(unpacked(bytes + "x"));
}

TEST(FactsTransfer, RefuseSizesBeyondTheBytes) { EXPECT_FALSE(unpacked(std::string(200, '\xFF'))); }

}  // namespace
}  // namespace kelm::ctl
