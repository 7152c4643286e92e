// What a sync did, as JSON.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/sync_report.hpp"

#include <gmock/gmock.h>

#include <sstream>

#include "tests/support/memory_ppd.hpp"

namespace kelm::ctl {
namespace {

using testing::HasSubstr;
using testing::Not;

// The JSON object of a queue whose PPD had the lines `before` and has the lines `after`.
std::string jsonOf(const std::string& before, const std::string& after) {
  const tests::MemoryPpd old(before);
  const tests::MemoryPpd present(after);
  SyncResult result;
  result.queue = "office";
  result.status = SyncStatus::kDone;
  result.before = storedSettings(old);
  result.after = storedSettings(present);
  std::ostringstream out;
  std::ostringstream err;
  writeJson({result}, false, {out, err});
  return out.str();
}

TEST(SyncJson, GivesTheNumbersOfABoxThatMoved) {
  EXPECT_THAT(jsonOf("*SharedBoxName0_Part1: YQ==\n*SharedBoxName16_Part1: Yg==\n",
                     "*SharedBoxName0_Part1: YQ==\n*SharedBoxName4_Part1: Yg==\n"),
              HasSubstr(R"("changes":{"sharedBoxes":{"before":["a","b"],"after":["a","b"]},)"
                        R"("sharedBoxNumbers":{"before":[1,17],"after":[1,5]}},)"));
}

TEST(SyncJson, GivesNoNumbersOfOtherLists) {
  const std::string json = jsonOf("", "*PSFormName0_Part1: YQ==\n*IsWakeOnLan: 0\n");
  EXPECT_THAT(json, HasSubstr(R"("forms":{"before":[],"after":["a"]})"));
  EXPECT_THAT(json, Not(HasSubstr("Numbers")));
}

TEST(SyncJson, HasNoChangesWhereNothingChanged) {
  const std::string lines = "*SharedBoxName3_Part1: YQ==\n";
  EXPECT_THAT(jsonOf(lines, lines), HasSubstr(R"("changes":{},)"));
}

}  // namespace
}  // namespace kelm::ctl
