// Which values the variables of the header can have.
// SPDX-License-Identifier: Apache-2.0
#include "explain/header_values.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "pjl/sequence.hpp"

namespace kelm::explain {
namespace {

using Names = std::set<std::string>;

// Variables that the filter copies and whose texts kelmctl explain does not check.
const Names kAnyText = {
    "QVOUTPUTBOX",      "QVPAGENUMSTARTNUM",  "QVPAGENUMSTARTPAGE", "QVPAGETRAYEXTERNALFEEDER",
    "QVPAGETRAYREPEAT", "QVPAGETRAYSTANDARD", "QVPAGETRAYTRAY1",    "QVPAGETRAYTRAY2",
    "QVPAGETRAYTRAY3",  "QVSTAMPDATESIZE",    "QVSTAMPPAGESIZE",    "QVSTAMPTEXTSIZE",
};

// "~" is no choice, no number and no hex text.
TEST(HeaderValues, AreCheckedForAllVariablesExceptThese) {
  Names unchecked;
  for (const bool isDialogJob : {false, true}) {
    pjl::forEachStep(isDialogJob, [&](const pjl::HeaderStep& step) {
      const RowFacts& row = factsOf(step, isDialogJob);
      for (const std::string& variable : row.variables) {
        if (isPossibleValue(row, variable, "~")) unchecked.insert(variable);
      }
    });
  }
  EXPECT_THAT(unchecked, testing::ContainerEq(kAnyText))
      << "a variable without a table needs a row of kForms in explain/header_values.cpp";
}

}  // namespace
}  // namespace kelm::explain
