// The work for a job or a PPD of any shape may only grow in proportion to its size. Four times the
// size may cost six times the work, which leaves room for sorting.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cctype>
#include <cstdint>
#include <ostream>
#include <string>

#include "filter/copy_loop.hpp"
#include "job/job_setup.hpp"
#include "pjl/sequence.hpp"
#include "platform/fake/fake_platform.hpp"
#include "ppdtext/kelm_ppd.hpp"
#include "ppdtext/localizer.hpp"
#include "ppdtext/record.hpp"
#include "ppdtext/unicode_text.hpp"
#include "psrewrite/job_stream.hpp"
#include "tests/support/job_shapes.hpp"
#include "tests/support/memory_job.hpp"
#include "tests/support/ppd_shapes.hpp"
#include "tests/unit/growth/counted_work.hpp"

namespace kelm::tests {

void PrintTo(const JobShape& shape, std::ostream* out) { *out << shape.name; }
void PrintTo(const PpdShape& shape, std::ostream* out) { *out << shape.name; }

namespace {

constexpr int kMostGrowth = 6;
constexpr int kSmaller = 8;  // than what the benchmarks time

template <class Shape>
std::string nameOf(const testing::TestParamInfo<Shape>& info) {
  std::string name;
  for (const char c : std::string(info.param.name)) name += std::isalnum(c) != 0 ? c : '_';
  return name;
}

std::uint64_t stepsOfJob(const JobShape& shape, int size) {
  const platform::FakePlatform platform;
  const std::string options = shape.options(size);
  const std::string postScript = shape.postScript(size);
  return stepsOf([&] {
    TestJob job = TestJob::parsed(options.c_str());
    job::decideCustomPaper(*job);
    job::decideOutputFace(*job);
    MemorySource source(postScript);
    MemoryOutput output;
    pjl::OutputPJL(output.stream(), *job);
    psrewrite::JobStream stream(source, output.stream());
    filter::copyPostScript(stream, *job);
    EXPECT_GE(output.text().size(), postScript.size());
  });
}

class WorkForAJob : public testing::TestWithParam<JobShape> {};

TEST_P(WorkForAJob, GrowsWithItsSize) {
  const JobShape& shape = GetParam();
  const std::uint64_t once = stepsOfJob(shape, shape.size / kSmaller);
  EXPECT_GT(once, 0U);
  EXPECT_LE(stepsOfJob(shape, 4 * (shape.size / kSmaller)), kMostGrowth * once);
}

INSTANTIATE_TEST_SUITE_P(Shapes, WorkForAJob,
                         testing::ValuesIn(jobShapes().begin(), jobShapes().end()),
                         nameOf<JobShape>);

std::uint64_t stepsOfPpd(const PpdShape& shape, int size) {
  const std::u16string text = ppdtext::toUtf16(ppdOf(shape, size)).value();
  return stepsOf([&] {
    const ppdtext::Record record(ppdtext::recordOf(std::u16string_view(text)));
    ASSERT_NE(record, nullptr);
    EXPECT_TRUE(ppdtext::localizeRecord(*record, text, u"de"));
    ppdtext::KelmPPD::ppdMarkDefaults_(record.get());
  });
}

class WorkForAPpd : public testing::TestWithParam<PpdShape> {};

TEST_P(WorkForAPpd, GrowsWithItsSize) {
  const PpdShape& shape = GetParam();
  const std::uint64_t once = stepsOfPpd(shape, shape.size / kSmaller);
  EXPECT_GT(once, 0U);
  EXPECT_LE(stepsOfPpd(shape, 4 * (shape.size / kSmaller)), kMostGrowth * once);
}

INSTANTIATE_TEST_SUITE_P(Shapes, WorkForAPpd,
                         testing::ValuesIn(ppdShapes().begin(), ppdShapes().end()),
                         nameOf<PpdShape>);

}  // namespace
}  // namespace kelm::tests
