// The variables of output, forms and the job's identity that need more than a table.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/finishing_writers.hpp"

#include <gtest/gtest.h>

#include <string>

#include "pjl/finishing_variables.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/unit/pjl/lines.hpp"

namespace kelm::pjl {
namespace {

constexpr char kFaceUp[] = "@PJL SET QVOUTPUTFACE=FACEUP\n";
constexpr char kFaceDown[] = "@PJL SET QVOUTPUTFACE=FACEDOWN\n";

TEST(OutputFace, IsDownForAJobWithoutOptions) { EXPECT_EQ(plain(Output_QVOUTPUTFACE), kFaceDown); }

TEST(OutputFace, IsDownWithoutATrayWhateverTheJobAsks) {
  EXPECT_EQ(plain(Output_QVOUTPUTFACE, {{"QVOutputFace", "FaceUp"}}), kFaceDown);
}

TEST(OutputFace, IsDownForTheAutoAndFaceDownTraysWhateverTheJobAsks) {
  for (const char* tray : {"Auto", "FaceDown"}) {
    EXPECT_EQ(plain(Output_QVOUTPUTFACE, {{"QVOutputTray", tray}, {"QVOutputFace", "FaceUp"}}),
              kFaceDown);
    EXPECT_EQ(dialog(Output_QVOUTPUTFACE, {{"QVOutputTray", tray}, {"QVOutputFace", "FaceUp"}}),
              kFaceDown);
    EXPECT_EQ(plain(Output_QVOUTPUTFACE, {{"QVOutputTray", tray}, {"QVOutputFace", "Nonsense"}}),
              kFaceDown);
  }
}

TEST(OutputFace, IsUpForTheStackerWhenTheJobDoesNotAsk) {
  EXPECT_EQ(plain(Output_QVOUTPUTFACE, {{"QVOutputTray", "Stacker"}}), kFaceUp);
}

TEST(OutputFace, FollowsTheJobForEveryOtherTrayEvenAnEmptyOne) {
  for (const char* tray : {"Upper", "Tray2", "auto", ""}) {
    EXPECT_EQ(plain(Output_QVOUTPUTFACE, {{"QVOutputTray", tray}, {"QVOutputFace", "FaceDown"}}),
              kFaceDown);
    EXPECT_EQ(plain(Output_QVOUTPUTFACE, {{"QVOutputTray", tray}}), kFaceUp);
  }
}

TEST(SheetTray, ThatIsAbsentIsStandardForPlainJobsAndTray1ForDialogJobs) {
  EXPECT_EQ(plain(Output_QVJOBSEPSHEETTRAY), "@PJL SET QVJOBSEPSHEETTRAY=STANDARD\n");
  EXPECT_EQ(dialog(Output_QVJOBSEPSHEETTRAY), "@PJL SET QVJOBSEPSHEETTRAY=TRAY1\n");
}

// The bytes of the tags "#kElMcUsToMfOrM" in hex, without the number at the end.
constexpr char kTag[] = "236B456C4D635573546F4D664F724D";

// Texts that fail the check are reported to the system log.
class Form : public testing::Test {
 protected:
  static std::string value(const std::string& text, const char* ppdName = "header-forms.ppd") {
    const std::string path = std::string(KELM_PPDS_DIR) + "/" + ppdName;
    return plain(Output_QVFORMSELECT1, {{"QVFormSelect1", text}}, path.c_str());
  }

  static std::string line(const std::string& hex) { return "@PJL SET QVFORMSELECT1=" + hex + "\n"; }

  platform::FakePlatform platform_;
};

TEST_F(Form, ThatIsAChoiceOfThePpdIsItsTagInHex) {
  constexpr const char* kNumbers[] = {"31", "32", "33", "34", "35", "36", "37", "38", "39", "3130"};
  for (int form = 1; form <= 10; ++form) {
    EXPECT_EQ(value("Form" + std::to_string(form)), line(std::string(kTag) + kNumbers[form - 1]));
  }
}

TEST_F(Form, OffIsEmpty) { EXPECT_EQ(value("Off"), line("")); }

TEST_F(Form, CustomFormIsTheWordForm) { EXPECT_EQ(value("CustomForm"), line("466F726D")); }

TEST_F(Form, IsKnownByItsLabel) {
  EXPECT_EQ(value("Third form"), line(std::string(kTag) + "33"));
  EXPECT_EQ(value("Custom.Third form"), line(std::string(kTag) + "33"));
}

TEST_F(Form, ThatIsAChoiceOfThePpdWithoutATagIsEmpty) { EXPECT_EQ(value("Form11"), line("")); }

TEST_F(Form, ThatIsNoChoiceOfThePpdIsTheTypedTextInHex) {
  EXPECT_EQ(value("Custom.Bill"), line("42696C6C"));
  EXPECT_EQ(value("OFF"), line("4F4646"));
}

TEST_F(Form, OfAPpdWithoutTheOptionIsTheTypedTextInHex) {
  EXPECT_EQ(value("Form1", "header-duplex-off.ppd"), line("466F726D31"));
  EXPECT_EQ(value("Off", "header-duplex-off.ppd"), line(""));
}

TEST_F(Form, WithAForbiddenCharacterIsEmpty) {
  EXPECT_EQ(value("Custom.a/b"), line(""));
  EXPECT_EQ(value("Custom.a\\b"), line(""));
}

TEST_F(Form, OfMoreThan128CharactersIsEmpty) {
  std::string hex;
  for (int i = 0; i < 128; ++i) hex += "78";
  EXPECT_EQ(value("Custom." + std::string(128, 'x')), line(hex));
  EXPECT_EQ(value("Custom." + std::string(129, 'x')), line(""));
}

TEST_F(Form, WithoutTheOptionIsEmpty) {
  EXPECT_EQ(plain(Output_QVFORMSELECT1, {{"QVFormSelect1StringValueUTF8", "41"}}), line(""));
  EXPECT_EQ(dialog(Output_QVFORMSELECT1, {{"QVFormSelect1", "Custom.Bill"}}), line(""));
}

TEST_F(Form, OfTheSecondOptionIsTheSecondVariable) {
  EXPECT_EQ(plain(Output_QVFORMSELECT2, {{"QVFormSelect2", "Custom.Bill"}}),
            "@PJL SET QVFORMSELECT2=42696C6C\n");
  EXPECT_EQ(plain(Output_QVFORMSELECT2, {{"QVFormSelect1", "Custom.Bill"}}),
            "@PJL SET QVFORMSELECT2=\n");
}

class Owner : public testing::Test {
 protected:
  Owner() { platform_.consoleUser.user = "anna"; }

  static std::string plainLines(const Options& options) {
    return plain(Output_QVOWNERNAME, options) + plain(Output_USERNAME, options);
  }

  static std::string lines(const std::string& known, const std::string& hex) {
    return "@PJL SET QVOWNERNAME=" + known + "\n@PJL SET USERNAME=" + hex + "\n";
  }

  platform::FakePlatform platform_;
};

TEST_F(Owner, OfAPlainJobIsTheTypedNameInHex) {
  EXPECT_EQ(plainLines({{"QVOwnerNameInfo", "Custom.Jo"}}), lines("ON", "4A6F"));
}

TEST_F(Owner, OfAPlainJobWithoutATypedNameIsTheConsoleUser) {
  EXPECT_EQ(plainLines({}), lines("OFF", "616E6E61"));
  EXPECT_EQ(plainLines({{"QVOwnerNameInfo", "OFF"}}), lines("OFF", "616E6E61"));
  EXPECT_EQ(plainLines({{"QVOwnerNameInfo", "Custom."}}), lines("OFF", "616E6E61"));
}

TEST_F(Owner, OfTwentyCharactersIsSentAndOfTwentyOneRejected) {
  std::string hex;
  for (int i = 0; i < 20; ++i) hex += "78";
  EXPECT_EQ(plainLines({{"QVOwnerNameInfo", "Custom." + std::string(20, 'x')}}), lines("ON", hex));
  EXPECT_EQ(plainLines({{"QVOwnerNameInfo", "Custom." + std::string(21, 'x')}}),
            lines("OFF", "616E6E61"));
}

TEST_F(Owner, OfADialogJobIsCopied) {
  EXPECT_EQ(dialog(Output_USERNAME, {{"QVOwnerNameTextValueUTF8", "4A6F"}}),
            "@PJL SET USERNAME=4A6F\n");
  EXPECT_EQ(dialog(Output_USERNAME, {{"QVOwnerNameTextValueUTF8", ""}}), "@PJL SET USERNAME=\n");
}

TEST_F(Owner, OfADialogJobWithoutATextIsTheConsoleUser) {
  EXPECT_EQ(dialog(Output_USERNAME, {{"QVOwnerNameInfo", "Custom.Jo"}}),
            "@PJL SET USERNAME=616E6E61\n");
}

TEST_F(Owner, IsEmptyWithoutAConsoleUser) {
  platform_.consoleUser.user = "";
  EXPECT_EQ(plainLines({}), lines("OFF", ""));
  EXPECT_EQ(dialog(Output_USERNAME), "@PJL SET USERNAME=\n");
}

TEST_F(Owner, IsNotTheUserOfTheCommandLine) {
  TestJob job;
  job->userName = "somebody";
  EXPECT_EQ(written(Output_USERNAME, job), "@PJL SET USERNAME=616E6E61\n");
}

TEST_F(Owner, WhoseNameDoesNotFit512BytesIsEmpty) {
  std::string hex;
  for (int i = 0; i < 511; ++i) hex += "61";
  platform_.consoleUser.user = std::string(511, 'a');
  EXPECT_EQ(plain(Output_USERNAME), "@PJL SET USERNAME=" + hex + "\n");
  platform_.consoleUser.user = std::string(512, 'a');
  EXPECT_EQ(plain(Output_USERNAME), "@PJL SET USERNAME=\n");
}

class JobName : public testing::Test {
 protected:
  static std::string plainLines(const Options& options) {
    return plain(Output_QVJOBNAME, options) + plain(Output_JOBNAME, options);
  }

  static std::string lines(const std::string& known, const std::string& hex) {
    return "@PJL SET QVJOBNAME=" + known + "\n@PJL SET JOBNAME=" + hex + "\n";
  }

  // The name of a job with the title "job".
  static constexpr char kTitle[] = "6A6F62";

  platform::FakePlatform platform_;
};

TEST_F(JobName, OfAPlainJobIsTheTypedNameInHexWithoutSpaces) {
  EXPECT_EQ(plainLines({{"QVJobNameInfo", "Custom.Report"}}), lines("ON", "5265706F7274"));
}

TEST_F(JobName, WithAColonIsTheTitle) {
  EXPECT_EQ(plainLines({{"QVJobNameInfo", "Custom.Re:port"}}), lines("OFF", kTitle));
}

TEST_F(JobName, OfAPlainJobWithoutATypedNameIsTheTitle) {
  EXPECT_EQ(plainLines({}), lines("OFF", kTitle));
  EXPECT_EQ(plainLines({{"QVJobNameInfo", "OFF"}}), lines("OFF", kTitle));
  EXPECT_EQ(plainLines({{"QVJobName", "ON"}, {"QVJobNameTextValueUTF8", "41"}}),
            lines("OFF", kTitle));
}

TEST_F(JobName, Of255CharactersIsSentAndOf256Rejected) {
  std::string hex;
  for (int i = 0; i < 255; ++i) hex += "78";
  EXPECT_EQ(plainLines({{"QVJobNameInfo", "Custom." + std::string(255, 'x')}}), lines("ON", hex));
  EXPECT_EQ(plainLines({{"QVJobNameInfo", "Custom." + std::string(256, 'x')}}),
            lines("OFF", kTitle));
}

TEST_F(JobName, OfAPlainJobHasAllBytesOfALongTitle) {
  const std::string title(5000, 'a');
  std::string hex;
  for (int i = 0; i < 5000; ++i) hex += "61";
  TestJob job;
  job->title = title.c_str();
  EXPECT_EQ(written(Output_JOBNAME, job), "@PJL SET JOBNAME=" + hex + "\n");
}

TEST_F(JobName, OfADialogJobIsTheOnePreparedForTheJob) {
  TestJob job({{"PrintPDE", ""}, {"QVJobNameInfo", "Custom.Report"}});
  job->jobNameHex = "41 942";
  EXPECT_EQ(written(Output_JOBNAME, job), "@PJL SET JOBNAME=41 942\n");
  job->jobNameHex = "";
  EXPECT_EQ(written(Output_JOBNAME, job), "@PJL SET JOBNAME=\n");
}

class Pin : public testing::Test {
 protected:
  static std::string lines(const std::string& pin) {
    const Options options = {{"QVSecretNumInfo", pin}};
    return plain(Output_QVSECRETNUM, options) + plain(Output_PASSWORD, options);
  }

  static std::string sent(const std::string& pin) {
    return "@PJL SET QVSECRETNUM=ON\n@PJL SET PASSWORD=" + pin + "\n";
  }

  static constexpr char kNone[] = "@PJL SET QVSECRETNUM=OFF\n@PJL SET PASSWORD=\n";

  platform::FakePlatform platform_;
};

TEST_F(Pin, OfAPlainJobIsWrittenAsTyped) {
  EXPECT_EQ(lines("Custom.0042"), sent("0042"));
  EXPECT_EQ(lines("12345678"), sent("12345678"));
}

TEST_F(Pin, ThatWasNotTypedPassesAsAnEmptyOne) {
  EXPECT_EQ(lines("Custom."), sent(""));
  EXPECT_EQ(lines(""), sent(""));
}

TEST_F(Pin, ThatIsOffOrNoNumberOrTooLongIsNone) {
  EXPECT_EQ(lines("OFF"), kNone);
  EXPECT_EQ(lines("Custom.42a"), kNone);
  EXPECT_EQ(lines("Custom.123456789"), kNone);
}

TEST_F(Pin, OfAPlainJobWithoutTheOptionIsNone) {
  const Options dialogKeys = {{"QVSecretNum", "ON"}, {"QVSecretNumTextValue", "42"}};
  EXPECT_EQ(plain(Output_QVSECRETNUM, dialogKeys), "@PJL SET QVSECRETNUM=OFF\n");
  EXPECT_EQ(plain(Output_PASSWORD, dialogKeys), "@PJL SET PASSWORD=\n");
}

class JobComment : public testing::Test {
 protected:
  static std::string line(const std::string& hex) { return "@PJL SET QVJOBCOMMENT=" + hex + "\n"; }

  platform::FakePlatform platform_;
};

TEST_F(JobComment, OfAPlainJobIsTheTypedTextInHex) {
  EXPECT_EQ(plain(Output_QVJOBCOMMENT, {{"QVJobComment", "Custom.a\tb"}}), line("61 962"));
}

TEST_F(JobComment, Of128CharactersIsSentAndOf129Rejected) {
  std::string hex;
  for (int i = 0; i < 128; ++i) hex += "78";
  EXPECT_EQ(plain(Output_QVJOBCOMMENT, {{"QVJobComment", "Custom." + std::string(128, 'x')}}),
            line(hex));
  EXPECT_EQ(plain(Output_QVJOBCOMMENT, {{"QVJobComment", "Custom." + std::string(129, 'x')}}),
            line(""));
}

TEST_F(JobComment, WithAnyForbiddenCharacterIsEmpty) {
  for (const char* character :
       {"“", "/", "[", "]", ":", "+", "¦", "<", ">", "=", ";", ",", "*", "?", "\\", "‘"}) {
    EXPECT_EQ(plain(Output_QVJOBCOMMENT, {{"QVJobComment", std::string("Custom.a") + character}}),
              line(""))
        << character;
  }
}

TEST_F(JobComment, ThatIsOffOrEmptyOrAbsentIsEmpty) {
  EXPECT_EQ(plain(Output_QVJOBCOMMENT, {{"QVJobComment", "OFF"}}), line(""));
  EXPECT_EQ(plain(Output_QVJOBCOMMENT, {{"QVJobComment", "Custom."}}), line(""));
  EXPECT_EQ(plain(Output_QVJOBCOMMENT, {{"QVJobCommentTextValueUTF8", "41"}}), line(""));
}

}  // namespace
}  // namespace kelm::pjl
