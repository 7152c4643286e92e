// A newly installed PPD with the facts and defaults that a queue had in its old one.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/refreshed_ppd.hpp"

#include <gmock/gmock.h>

#include "tests/support/memory_ppd.hpp"

namespace kelm::ctl {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr char kNew[] =
    "*PPD-Adobe: \"4.3\"\n"
    "*OpenUI *PageSize/Size: PickOne\n"
    "*DefaultPageSize: A4\n"
    "*PageSize A4/A4: \"1\"\n"
    "*PageSize A3/A3: \"2\"\n"
    "*CloseUI: *PageSize\n"
    "*DefaultImageableArea: A4\n"
    "*OpenUI *Staple/Staple: PickOne\n"
    "*DefaultStaple: None\n"
    "*Staple None/None: \"\"\n"
    "*Staple One/One: \"\"\n"
    "*CloseUI: *Staple\n";

std::string option(const std::string& keyword, const std::string& choice) {
  return "*OpenUI *" + keyword + "/x: PickOne\n*Default" + keyword + ": " + choice + "\n*" +
         keyword + " " + choice + "/x: \"\"\n*CloseUI: *" + keyword + "\n";
}

RefreshedPpd refreshed(const std::string& old) {
  const tests::MemoryPpd newPpd{std::string_view(kNew)};
  const tests::MemoryPpd oldPpd(old);
  return refreshedPpd(kNew, newPpd, oldPpd);
}

TEST(RefreshedPpd, IsTheNewOneWithoutAnythingToKeep) {
  EXPECT_EQ(refreshed("").text, kNew);
  EXPECT_EQ(refreshed(option("PageSize", "A4")).text, kNew);
}

TEST(RefreshedPpd, HasTheStoredFactsAfterItsFirstLine) {
  const RefreshedPpd ppd = refreshed("*IsWakeOnLan: 0\n*PrinterMacAddress: MDA6\n*Other: 1\n");
  EXPECT_THAT(ppd.text, testing::StartsWith("*PPD-Adobe: \"4.3\"\n*IsWakeOnLan: 0\n"
                                            "*PrinterMacAddress: MDA6\n*OpenUI *PageSize"));
  EXPECT_EQ(ppd.facts, 2U);
  EXPECT_THAT(ppd.text, testing::Not(HasSubstr("Other")));
}

TEST(RefreshedPpd, HasTheQueuesOwnDefaultsAndTheAttributesThatFollowThePaper) {
  const RefreshedPpd ppd = refreshed(option("PageSize", "A3") + option("Staple", "One"));
  EXPECT_THAT(ppd.text, HasSubstr("\n*DefaultPageSize: A3\n"));
  EXPECT_THAT(ppd.text, HasSubstr("\n*DefaultImageableArea: A3\n"));
  EXPECT_THAT(ppd.text, HasSubstr("\n*DefaultStaple: One\n"));
  EXPECT_EQ(ppd.defaults, 2U);
  EXPECT_THAT(ppd.notes, IsEmpty());
}

// A PPD whose option takes numbers, with this default.
std::string zoom(const std::string& choice) {
  return "*PPD-Adobe: \"4.3\"\n"
         "*OpenUI *Zoom/Zoom: PickOne\n"
         "*DefaultZoom: " +
         choice +
         "\n*Zoom Full/100 %: \"\"\n"
         "*CloseUI: *Zoom\n"
         "*CustomZoom True: \"\"\n"
         "*ParamCustomZoom Rate: 1 int 10 400\n";
}

TEST(RefreshedPpd, HasTheQueuesOwnNumber) {
  const tests::MemoryPpd newPpd(zoom("Full"));
  const tests::MemoryPpd oldPpd(zoom("Custom.141"));
  const RefreshedPpd ppd = refreshedPpd(zoom("Full"), newPpd, oldPpd);
  EXPECT_EQ(ppd.text, zoom("Custom.141"));
  EXPECT_THAT(ppd.notes, IsEmpty());
}

TEST(RefreshedPpd, NamesADefaultWhoseChoiceOrOptionIsGone) {
  const RefreshedPpd ppd = refreshed(option("Staple", "Two") + option("Fold", "Half"));
  EXPECT_EQ(ppd.text, kNew);
  EXPECT_THAT(ppd.notes, ElementsAre("the default Two of Staple is gone; the new one is None",
                                     "the option Fold is gone; its default was Half"));
}

TEST(HaveSameLines, InAnyOrder) {
  EXPECT_TRUE(haveSameLines("a\nb\n", "b\na\n"));
  EXPECT_FALSE(haveSameLines("a\nb\n", "b\na\na\n"));
  EXPECT_TRUE(haveSameLines("", ""));
}

}  // namespace
}  // namespace kelm::ctl
