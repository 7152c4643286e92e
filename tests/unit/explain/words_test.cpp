// How similar two words are.
// SPDX-License-Identifier: Apache-2.0
#include "explain/words.hpp"

#include <gtest/gtest.h>

#include <string>

namespace kelm::explain {
namespace {

TEST(EditDistance, CountsCharactersButForCase) {
  EXPECT_EQ(editDistance("", ""), 0U);
  EXPECT_EQ(editDistance("abc", "ABC"), 0U);
  EXPECT_EQ(editDistance("kitten", "sitting"), 3U);
  EXPECT_EQ(editDistance("", "abc"), 3U);
  EXPECT_EQ(editDistance("medai", "media"), 1U);
  EXPECT_EQ(editDistance("abcd", "badc"), 2U);
  EXPECT_EQ(editDistance(std::string(200, 'a'), "b"), 200U);
}

}  // namespace
}  // namespace kelm::explain
