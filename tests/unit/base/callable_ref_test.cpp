// References to functions and to constant objects with a call operator.
// SPDX-License-Identifier: Apache-2.0
#include "base/callable_ref.hpp"

#include <gtest/gtest.h>

#include <string>

namespace kelm::base {
namespace {

using Ref = CallableRef<std::string(const std::string&)>;

std::string twice(const std::string& text) { return text + text; }

struct Prefix {
  const char* prefix;
  std::string operator()(const std::string& text) const { return prefix + text; }
};

constexpr Prefix kDash{"-"};
constexpr Prefix kPlus{"+"};

TEST(CallableRef, ToNothingIsFalse) { EXPECT_FALSE(Ref()); }

TEST(CallableRef, CallsAFunction) {
  const Ref ref(twice);
  EXPECT_TRUE(ref);
  EXPECT_EQ(ref("ab"), "abab");
}

TEST(CallableRef, CallsAnObjectWithItsOwnData) {
  constexpr Ref kRows[] = {kDash, kPlus, twice};
  EXPECT_TRUE(kRows[0]);
  EXPECT_EQ(kRows[0]("a"), "-a");
  EXPECT_EQ(kRows[1]("a"), "+a");
  EXPECT_EQ(kRows[2]("a"), "aa");
}

TEST(CallableRef, CopiesReferToTheSame) {
  const Ref first(kDash);
  const Ref second = first;
  EXPECT_EQ(second("a"), "-a");
}

TEST(CallableRef, KnowsItsFunction) {
  constexpr Ref kFunction = twice;
  static_assert(kFunction.refersTo(twice));
  EXPECT_FALSE(Ref(kDash).refersTo(twice));
  EXPECT_FALSE(Ref().refersTo(twice));
}

TEST(CallableRef, TakesNoTemporary) {
  EXPECT_FALSE((std::is_constructible_v<Ref, const Prefix&&>));
  EXPECT_TRUE((std::is_constructible_v<Ref, const Prefix&>));
}

}  // namespace
}  // namespace kelm::base
