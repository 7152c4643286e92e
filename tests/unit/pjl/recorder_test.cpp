// The recorded header is the header that is written.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/recorder.hpp"

#include <gtest/gtest.h>

#include "platform/fake/fake_platform.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::pjl {
namespace {

using tests::TestJob;

class Recorder : public testing::TestWithParam<TestJob::Options> {
  platform::FakePlatform platform_;
};

std::string textOf(const std::vector<RecordedLine>& lines) {
  std::string text;
  for (const RecordedLine& line : lines) {
    text += line.variable.empty() ? line.value : "@PJL SET " + line.variable + "=" + line.value;
    text += "\n";
  }
  return text;
}

TEST_P(Recorder, GivesTheBytesOfTheHeader) {
  TestJob written(GetParam());
  tests::MemoryOutput output;
  OutputPJL(output.stream(), *written);
  TestJob recorded(GetParam());
  EXPECT_EQ(textOf(recordHeader(*recorded)), output.text());
}

INSTANTIATE_TEST_SUITE_P(Jobs, Recorder,
                         testing::Values(TestJob::Options{}, TestJob::Options{{"PrintPDE", "1"}},
                                         TestJob::Options{{"QVDuplex", "LongEdge"},
                                                          {"QVBookletBinding", "TwoFold"}},
                                         TestJob::Options{{"QVGCRed", "a\n@PJL b"}}));

TEST(RecordedLines, NameTheRow) {
  platform::FakePlatform platform;
  TestJob job(TestJob::Options{{"QVStapleMode", "OneStaple"}});
  int found = 0;
  for (const RecordedLine& line : recordHeader(*job)) {
    if (line.variable != "QVSTAPLEMODE") continue;
    ++found;
    EXPECT_EQ(line.value, "1STAPLE");
    const auto* row = std::get<const TableVariable*>(*line.step);
    EXPECT_STREQ(row->optionKey, "QVStapleMode");
  }
  EXPECT_EQ(found, 1);
}

TEST(RecordedLines, SeparateTheTwoLinesOfOneRow) {
  platform::FakePlatform platform;
  TestJob job(TestJob::Options{{"QVGCRed", "1\n2"}, {"QVGCGray", "3"}});
  std::vector<std::string> values;
  for (const RecordedLine& line : recordHeader(*job)) {
    if (line.variable == "QVGCRED" || line.variable == "QVGCGRAY") values.push_back(line.value);
  }
  EXPECT_EQ(values, (std::vector<std::string>{"1\n2", "3"}));
}

}  // namespace
}  // namespace kelm::pjl
