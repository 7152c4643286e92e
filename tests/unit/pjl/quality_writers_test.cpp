// The variables of colour, barcodes and profiles that need more than a table.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/quality_writers.hpp"

#include <gtest/gtest.h>

#include <string>

#include "pjl/quality_variables.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/unit/pjl/lines.hpp"

namespace kelm::pjl {
namespace {

TEST(ImageQuality, WithoutTheOptionIsStandardAndHighSpeedHasAnUnderscore) {
  EXPECT_EQ(plain(Output_QVRESOLUTION), "@PJL SET QVIMAGEQUALITY=STANDARD\n");
  EXPECT_EQ(plain(Output_QVRESOLUTION, {{"QVImageQuality", "HighSpeed"}}),
            "@PJL SET QVIMAGEQUALITY=HIGH_SPEED\n");
}

TEST(Brightness, WithoutTheOptionIsZeroAndDarkestIsTwo) {
  EXPECT_EQ(plain(Output_QVGCBRIGHTNESS), "@PJL SET QVGCBRIGHTNESS=0\n");
  EXPECT_EQ(plain(Output_QVGCBRIGHTNESS, {{"QVGCBrightness", "Darkest"}}),
            "@PJL SET QVGCBRIGHTNESS=2\n");
}

TEST(GrayAndRed, OfADialogJobHaveGrayFirst) {
  EXPECT_EQ(dialog(Output_QVGCGRAY, {{"QVGCGrayStringValue", "90"}, {"QVGCRedStringValue", "80"}}),
            "@PJL SET QVGCGRAY=90\n@PJL SET QVGCRED=80\n");
  EXPECT_EQ(dialog(Output_QVGCGRAY, {{"QVGCGray", "90"}, {"QVGCRed", "80"}}),
            "@PJL SET QVGCGRAY=100\n@PJL SET QVGCRED=100\n");
}

TEST(GrayAndRed, OfAPlainJobHaveRedFirst) {
  EXPECT_EQ(plain(Output_QVGCGRAY, {{"QVGCGray", "90"}, {"QVGCRed", "80"}}),
            "@PJL SET QVGCRED=80\n@PJL SET QVGCGRAY=90\n");
  EXPECT_EQ(plain(Output_QVGCGRAY, {{"QVGCGrayStringValue", "90"}, {"QVGCRedStringValue", "80"}}),
            "@PJL SET QVGCRED=100\n@PJL SET QVGCGRAY=100\n");
}

// Texts that fail the check are reported to the system log.
class BarcodeSelection : public testing::Test {
 protected:
  static std::string lines(const std::string& selection) {
    const Options options = {{"QVBarcodeSelection", selection}};
    return plain(Output_QVBCODEAREA, options) + plain(Output_QVBCODEAREASELECTION, options);
  }

  static std::string selected(const std::string& hex) {
    return "@PJL SET QVBARCODEAREA=ON\n@PJL SET QVBARCODESELECTION=" + hex + "\n";
  }

  static constexpr char kNone[] = "@PJL SET QVBARCODEAREA=OFF\n@PJL SET QVBARCODESELECTION=\n";

  platform::FakePlatform platform_;
};

TEST_F(BarcodeSelection, OfAPlainJobIsTheTypedTextInHex) {
  EXPECT_EQ(lines("Custom.Label"), selected("4C6162656C"));
  EXPECT_EQ(lines("Label"), selected("4C6162656C"));
}

TEST_F(BarcodeSelection, OfAPlainJobMayHoldAnyCharacter) {
  EXPECT_EQ(lines("Custom.a/[]:*?"), selected("612F5B5D3A2A3F"));
}

TEST_F(BarcodeSelection, OfAPlainJobEndsAtTheSecondDot) {
  EXPECT_EQ(lines("Custom.a.b"), selected("61"));
}

TEST_F(BarcodeSelection, OfAPlainJobOfThirtyCharactersIsSent) {
  std::string hex;
  for (int i = 0; i < 30; ++i) hex += "78";
  EXPECT_EQ(lines("Custom." + std::string(30, 'x')), selected(hex));
}

TEST_F(BarcodeSelection, OfAPlainJobOfThirtyOneCharactersIsRejected) {
  EXPECT_EQ(lines("Custom." + std::string(31, 'x')), kNone);
}

TEST_F(BarcodeSelection, OfAPlainJobThatIsEmptyOrOffIsNone) {
  EXPECT_EQ(lines("OFF"), kNone);
  EXPECT_EQ(lines("Custom.OFF"), kNone);
  EXPECT_EQ(lines("Custom."), kNone);
  EXPECT_EQ(lines(""), kNone);
}

TEST_F(BarcodeSelection, OfAPlainJobWithoutTheOptionIsNone) {
  const Options dialogKeys = {{"QVBarcodeArea", "ON"},
                              {"QVBarcodeAreaDefinitionStringValueUTF8", "41"}};
  EXPECT_EQ(plain(Output_QVBCODEAREA, dialogKeys), "@PJL SET QVBARCODEAREA=OFF\n");
  EXPECT_EQ(plain(Output_QVBCODEAREASELECTION, dialogKeys), "@PJL SET QVBARCODESELECTION=\n");
}

TEST_F(BarcodeSelection, OfADialogJobIsNotThatOfAPlainOne) {
  const Options plainKey = {{"QVBarcodeSelection", "Custom.Label"}};
  EXPECT_EQ(dialog(Output_QVBCODEAREA, plainKey), "@PJL SET QVBARCODEAREA=OFF\n");
  EXPECT_EQ(dialog(Output_QVBCODEAREASELECTION, plainKey), "@PJL SET QVBARCODESELECTION=\n");
}

class OutputProfile : public testing::Test {
 protected:
  static std::string value(const std::string& selection, const char* ppdName = nullptr) {
    const Options options = {{"QVOutputProfileSelection", selection}};
    if (ppdName == nullptr) return plain(Output_QVOUTPUTPROFILESELECTION, options);
    const std::string path = std::string(KELM_PPDS_DIR) + "/" + ppdName;
    return plain(Output_QVOUTPUTPROFILESELECTION, options, path.c_str());
  }

  static std::string line(const std::string& text) {
    return "@PJL SET QVOUTPUTPROFILESELECTION=" + text + "\n";
  }

  platform::FakePlatform platform_;
};

TEST_F(OutputProfile, OfAPlainJobThatIsAChoiceOfThePpdIsItsWord) {
  EXPECT_EQ(value("Auto", "header-forms.ppd"), line("AUTO"));
  EXPECT_EQ(value("NotUse", "header-forms.ppd"), line("NOTUSE"));
  EXPECT_EQ(value("Custom.NotUse", "header-forms.ppd"), line("NOTUSE"));
}

TEST_F(OutputProfile, OfAPlainJobWithoutAPpdIsAText) {
  EXPECT_EQ(value("NotUse"), line("4E6F74557365"));
  EXPECT_EQ(value("Auto"), line("AUTO"));
}

TEST_F(OutputProfile, OfAPlainJobIsTheTypedTextInHex) {
  EXPECT_EQ(value("Custom.My Profile_1"), line("4D792050726F66696C655F31"));
  EXPECT_EQ(value("Custom.a\tb"), line("61 962"));
}

TEST_F(OutputProfile, OfAPlainJobThatIsNeitherAChoiceNorValidIsAuto) {
  EXPECT_EQ(value("Custom.a:b"), line("AUTO"));
  EXPECT_EQ(value("Custom.Profil-é"), line("AUTO"));
  EXPECT_EQ(value("Custom." + std::string(256, 'a')), line("AUTO"));
  EXPECT_EQ(value("Custom."), line("AUTO"));
}

TEST_F(OutputProfile, OfAPlainJobWithoutTheOptionIsAuto) {
  EXPECT_EQ(
      plain(Output_QVOUTPUTPROFILESELECTION, {{"QVOutputProfileSelectionStringValueUTF8", "41"}}),
      line("AUTO"));
}

TEST_F(OutputProfile, OfADialogJobWithoutTheOptionIsEmpty) {
  EXPECT_EQ(dialog(Output_QVOUTPUTPROFILESELECTION, {{"QVOutputProfileSelection", "Auto"}}),
            line(""));
}

}  // namespace
}  // namespace kelm::pjl
