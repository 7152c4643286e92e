// What kelmctl's options --json print.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/json.hpp"

#include <gtest/gtest.h>

namespace kelm::ctl {
namespace {

TEST(TextOf, IsOneLineOrIndented) {
  const Json object{{"queue", "kelm"}, {"boxes", {1, 2}}};
  EXPECT_EQ(textOf(object, JsonLayout::kOneLine), R"({"queue":"kelm","boxes":[1,2]})");
  EXPECT_EQ(textOf(object, JsonLayout::kIndented),
            "{\n  \"queue\": \"kelm\",\n  \"boxes\": [\n    1,\n    2\n  ]\n}");
}

TEST(TextOf, ReplacesBytesThatAreNotUtf8) {
  EXPECT_EQ(textOf({{"name", "B\xE9 1"}}, JsonLayout::kOneLine), "{\"name\":\"B\uFFFD 1\"}");
}

TEST(TextOf, EscapesControlCharacters) {
  EXPECT_EQ(textOf({{"name", "\x1B[2J\u202E"}}, JsonLayout::kOneLine),
            R"({"name":"\u001b[2J\u202E"})");
}

}  // namespace
}  // namespace kelm::ctl
