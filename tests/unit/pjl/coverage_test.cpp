// Every variable of the header has a test of its line.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <variant>

#include "pjl/sequence.hpp"

namespace kelm::pjl {
namespace {

// The parameters of all tests, for example "QVSTAPLEMODE" or "QVBINDINGOfDialogJobs" (lines.hpp).
std::set<std::string> testedCases() {
  std::set<std::string> names;
  const testing::UnitTest& tests = *testing::UnitTest::GetInstance();
  for (int i = 0; i < tests.total_test_suite_count(); ++i) {
    const testing::TestSuite& suite = *tests.GetTestSuite(i);
    for (int j = 0; j < suite.total_test_count(); ++j) {
      const std::string name = suite.GetTestInfo(j)->name();
      names.insert(name.substr(name.find('/') + 1));
    }
  }
  return names;
}

// The source text of the tests for writers with logic of their own.
std::string writerTests() {
  std::string text;
  for (const auto& entry : std::filesystem::directory_iterator(KELM_SOURCE_DIR "/tests/unit/pjl")) {
    if (!entry.path().string().ends_with("_writers_test.cpp")) continue;
    std::ifstream file(entry.path());
    text.append(std::istreambuf_iterator<char>(file), {});
  }
  return text;
}

class Tests {
 public:
  void expectFor(const OwnVariable& variable) const { expectWriterTest(variable.pjlName); }
  void expectFor(const UpperCaseVariable& variable) const { expectWriterTest(variable.pjlName); }

  template <class Row>
  void expectFor(const DialogOrPlain<Row>& variable) const {
    expectFor(variable.dialog);
    expectFor(variable.plain);
  }

  template <class Row>
  void expectFor(const Row& variable) const {
    const std::string name = variable.pjlName;
    const bool forEachKind =
        cases_.contains(name + "OfDialogJobs") && cases_.contains(name + "OfPlainJobs");
    EXPECT_TRUE(cases_.contains(name) || forEachKind)
        << name
        << " has no row in tests/unit/pjl/table_variables_test.cpp or copy_variables_test.cpp";
  }

 private:
  // `name` is one variable, or several with words between them.
  void expectWriterTest(const std::string& name) const {
    const std::string first = name.substr(0, name.find(' '));
    EXPECT_NE(writers_.find(first), std::string::npos)
        << first << " has no test in a tests/unit/pjl/*_writers_test.cpp";
  }

  const std::set<std::string> cases_ = testedCases();
  const std::string writers_ = writerTests();
};

TEST(EveryVariable, HasTestsOfItsLine) {
  const Tests tests;
  for (const HeaderSection& section : headerSections()) {
    for (const HeaderStep& step : section.steps) {
      std::visit([&](const auto* variable) { tests.expectFor(*variable); }, step);
    }
  }
}

}  // namespace
}  // namespace kelm::pjl
