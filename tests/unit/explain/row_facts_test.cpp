// The facts about the header's rows: variables, options, and whether a value is hex text.
// SPDX-License-Identifier: Apache-2.0
#include "explain/row_facts.hpp"

#include <gtest/gtest.h>

#include "pjl/finishing_variables.hpp"
#include "pjl/paper_variables.hpp"
#include "pjl/quality_variables.hpp"
#include "pjl/sequence.hpp"

namespace kelm::explain {
namespace {

using Texts = std::vector<std::string>;

TEST(RowFacts, ReadTheOptionsOfBothKindsOfJobs) {
  const pjl::HeaderStep step = &pjl::Output_QVBINDING;
  EXPECT_EQ(factsOf(step, true).options, Texts{"QVBindingValue"});
  EXPECT_EQ(factsOf(step, false).options, Texts{"QVBinding"});
}

TEST(RowFacts, TellAChoiceOfVariablesFromTwoLines) {
  const RowFacts copies = factsOf(&pjl::Output_QTY, false);
  EXPECT_EQ(copies.variables, (Texts{"QTY", "COPIES"}));
  EXPECT_FALSE(copies.writesAllVariables);
  const RowFacts gray = factsOf(&pjl::Output_QVGCGRAY, false);
  EXPECT_EQ(gray.variables, (Texts{"QVGCGRAY", "QVGCRED"}));
  EXPECT_TRUE(gray.writesAllVariables);
  EXPECT_EQ(gray.options, (Texts{"QVGCRed", "QVGCGray"}));
}

TEST(RowFacts, KnowTextsInHex) {
  EXPECT_TRUE(factsOf(&pjl::Output_QVJOBCOMMENT, false).isHexText);
  EXPECT_FALSE(factsOf(&pjl::Output_QVOWNERNAME, false).isHexText);
  EXPECT_FALSE(factsOf(&pjl::Output_PASSWORD, false).isHexText);
}

TEST(RowFacts, HaveAnOptionForEveryRow) {
  for (const pjl::HeaderSection& section : pjl::headerSections()) {
    for (const pjl::HeaderStep& step : section.steps) {
      const RowFacts row = factsOf(step, section.dialogOnly);
      ASSERT_FALSE(row.variables.empty());
      EXPECT_FALSE(row.options.empty()) << row.variables.front();
    }
  }
}

}  // namespace
}  // namespace kelm::explain
