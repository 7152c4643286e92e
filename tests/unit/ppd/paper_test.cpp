// The PPD's papers against the paper table: names, order and sizes.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

#include "job/paper.hpp"
#include "tests/unit/ppd/description.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::tests {
namespace {

using job::kPapers;

// 1/100 mm as the PPD writes them: points, rounded to 1/100 point, without zeros at the end.
std::string points(const char* hundredths) {
  char text[32];
  const double exact = std::strtod(hundredths, nullptr) / 2540 * 72;
  std::snprintf(text, sizeof text, "%.2f", exact);
  std::string result = text;
  while (result.ends_with('0')) result.pop_back();
  if (result.ends_with('.')) result.pop_back();
  return result;
}

class Papers : public testing::TestWithParam<const char*> {
 protected:
  Description description_;
};

INSTANTIATE_TEST_SUITE_P(, Papers, testing::Values("PageSize", "PageRegion"),
                         [](const auto& option) { return std::string(option.param); });

TEST_P(Papers, AreThoseOfThePaperTableInItsOrder) {
  std::vector<std::string> expected;
  for (const job::Paper& paper : kPapers) expected.emplace_back(paper.name);
  std::vector<std::string> found;
  for (const Choice& choice : description_.find(GetParam())->choices) {
    if (!choice.custom) found.push_back(choice.name);
  }
  EXPECT_EQ(expected, found);
}

TEST_P(Papers, SetThePageToTheSizeOfTheTable) {
  const Option* option = description_.find(GetParam());
  for (std::size_t i = 0; i < std::size(kPapers); ++i) {
    EXPECT_EQ("<</PageSize [" + points(kPapers[i].width) + " " + points(kPapers[i].height) +
                  "] /ImagingBBox null>> setpagedevice",
              option->choices.at(i).code);
  }
}

// The sizes that CUPS works with, again in 1/100 mm: 3 mm at each edge are not printed on.
TEST(PaperDimension, ReachesCupsWithMarginsOfThreeMillimetres) {
  const Description description;
  for (const job::Paper& paper : kPapers) {
    const ppd_size_t* size = ppdPageSize(description.ppd(), paper.name);
    ASSERT_NE(nullptr, size) << paper.name;
    const auto hundredths = [](float length) { return double(length) / 72 * 2540; };
    EXPECT_NEAR(std::atof(paper.width), hundredths(size->width), 0.5) << paper.name;
    EXPECT_NEAR(std::atof(paper.height), hundredths(size->length), 0.5) << paper.name;
    EXPECT_NEAR(300, hundredths(size->left), 1) << paper.name;
    EXPECT_NEAR(300, hundredths(size->bottom), 1) << paper.name;
    EXPECT_NEAR(300, hundredths(size->width - size->right), 1) << paper.name;
    EXPECT_NEAR(300, hundredths(size->length - size->top), 1) << paper.name;
  }
}

TEST(PaperDimension, MayBeTyped) { EXPECT_EQ(1, Description().ppd()->variable_sizes); }

}  // namespace
}  // namespace kelm::tests
