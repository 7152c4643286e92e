// What kelmctl's options --json print.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/json.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace kelm::ctl {
namespace {

TEST(TextOf, IsOneLineOrIndented) {
  const Json object{{"queue", "kelm"}, {"boxes", {1, 2}}};
  EXPECT_EQ(textOf(object, JsonLayout::kOneLine), R"({"queue":"kelm","boxes":[1,2]})");
  EXPECT_EQ(textOf(object, JsonLayout::kIndented),
            "{\n  \"queue\": \"kelm\",\n  \"boxes\": [\n    1,\n    2\n  ]\n}");
}

TEST(TextOf, HasEachKindOfValue) {
  const Json values{nullptr,
                    true,
                    -1,
                    18446744073709551615U,
                    "text",
                    std::vector<int>(),
                    std::optional<int>(),
                    std::optional<int>(7),
                    Json::array(),
                    Json::object()};
  EXPECT_EQ(textOf(values, JsonLayout::kOneLine),
            R"([null,true,-1,18446744073709551615,"text",[],null,7,[],{}])");
}

TEST(TextOf, KeepsTheOrderOfMembers) {
  Json object{{"b", 1}, {"a", 2}, {"b", 3}};
  object["c"] = 4;
  object.update({{"a", 5}, {"d", 6}});
  EXPECT_EQ(textOf(object, JsonLayout::kOneLine), R"({"b":3,"a":5,"c":4,"d":6})");
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
