// Remarks on numbers out of range, and the meanings of negative lengths and of texts' switches.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>

#include "explain/explanation.hpp"
#include "job/ppd_calls.hpp"
#include "platform/fake/fake_platform.hpp"

namespace kelm::explain {
namespace {

class QueueOptions : public testing::Test {
 protected:
  ~QueueOptions() override { job::r_ppdClose(ppd_); }

  Explanation of(const std::string& options) {
    return explained({ppd_, parsedOptions({options}), 1, "report"});
  }

  std::string problem(const std::string& options) {
    const Explanation explanation = of(options);
    EXPECT_LE(explanation.remarks.size(), 1U) << options;
    return explanation.remarks.empty() ? "" : explanation.remarks.front().problem;
  }

  std::string meaning(const std::string& options, const std::string& variable) {
    for (const Line& line : of(options).lines) {
      if (line.variable == variable) return line.label.name + ": " + line.label.choice;
    }
    return "";
  }

 private:
  platform::FakePlatform platform_;
  ppd_file_t* ppd_ = job::r_ppdOpenFile(KELM_DIALOG_PPD);
};

TEST_F(QueueOptions, HaveNumbersWithinTheLimitsOfThePpd) {
  for (const char* option : {"QVZoomRate=Custom.50", "QVZoomRate=Custom.200", "QVZoomRate=OFF",
                             "QVGCCyan=0", "QVGCCyan=Custom.200"}) {
    EXPECT_EQ(problem(option), "") << option;
  }
  for (const char* option : {"QVZoomRate=Custom.49", "QVZoomRate=Custom.201", "QVZoomRate=9999",
                             "QVZoomRate=Custom.abc", "QVZoomRate=Custom."}) {
    EXPECT_EQ(problem(option), "is not a number from 50 to 200") << option;
  }
  EXPECT_EQ(problem("QVGCCyan=Custom.-1"), "is not a number from 0 to 200");
}

TEST_F(QueueOptions, CallTheSwitchOfATextByWhatItIs) {
  EXPECT_EQ(meaning("QVBarcodeSelection=Custom.Label", "QVBARCODEAREA"),
            "Barcode area name: Custom text");
  EXPECT_EQ(meaning("", "QVBARCODEAREA"), "Barcode area name: Off");
  EXPECT_EQ(meaning("QVSecretNumInfo=Custom.1234", "QVSECRETNUM"), "PIN: Custom number");
}

TEST_F(QueueOptions, HaveNegativeLengthsInMillimetres) {
  EXPECT_EQ(meaning("PageSize=Custom.-1x-1mm", "QVPAGESIZEWIDTH"), "Page width: -1 mm");
}

}  // namespace
}  // namespace kelm::explain
