// The writers that derive a value themselves.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>

#include "platform/fake/fake_platform.hpp"
#include "psrewrite/features.hpp"
#include "tests/unit/psrewrite/written.hpp"

namespace kelm::psrewrite {
namespace {

using Options = tests::TestJob::Options;

// Only a custom choice of a text option has the first of these lines.
constexpr char kCustomLines[] = "extra XXX\n(XXX) set\nnext\n";
constexpr char kLines[] = "(XXX) set\nnext\n";

class SpecialWriters : public testing::Test {
 protected:
  // What the writer of `code` makes of the lines; the job's title is "My job".
  Written of(std::int32_t code, const Options& options, const char* lines = kLines,
             const char* ppd = nullptr) {
    tests::TestJob job(options, ppd);
    job->title = "My job";
    job->jobNameHex = "4D79206A6F62";
    return written(featureWriter(code), *job, lines);
  }

  platform::FakePlatform platform_;
};

Written filled(const std::string& value) { return {true, "(" + value + ") set\n", "next\n"}; }

TEST_F(SpecialWriters, CommentOfACustomChoiceSkipsALine) {
  EXPECT_EQ(of(408, {{"QVJobComment", "Custom.Hello"}}, kCustomLines), filled("48656C6C6F"));
}

TEST_F(SpecialWriters, CommentIsCutAtItsFullStop) {
  EXPECT_EQ(of(408, {{"QVJobComment", "Custom.a.b"}}, kCustomLines), filled("61"));
}

TEST_F(SpecialWriters, CommentWithASlashOrAColonIsEmpty) {
  EXPECT_EQ(of(408, {{"QVJobComment", "Custom.a/b"}}, kCustomLines), filled(""));
  EXPECT_EQ(of(408, {{"QVJobComment", "Custom.a:b"}}, kCustomLines), filled(""));
}

TEST_F(SpecialWriters, CommentWithATabHasASpaceAndNine) {
  EXPECT_EQ(of(408, {{"QVJobComment", "Custom.a\tb"}}, kCustomLines), filled("61 962"));
}

TEST_F(SpecialWriters, CommentOffAbsentOrTooLongIsEmpty) {
  EXPECT_EQ(of(408, {}), filled(""));
  EXPECT_EQ(of(408, {{"QVJobComment", "OFF"}}), filled(""));
  EXPECT_EQ(of(408, {{"QVJobComment", std::string(129, 'c')}}), filled(""));
  EXPECT_EQ(of(408, {{"QVJobComment", "ab"}}), filled("6162"));
}

constexpr char kForms[] = KELM_PPDS_DIR "/forms.ppd";

constexpr char kTag[] = "236B456C4D635573546F4D664F724D";  // "#kElMcUsToMfOrM"

TEST_F(SpecialWriters, FormIsTheTagOfItsChoice) {
  for (int number = 1; number <= 9; ++number) {
    const std::string tag = kTag + std::string("3") + std::to_string(number);
    const std::string choice = "Form" + std::to_string(number);
    EXPECT_EQ(of(409, {{"QVFormSelect1", choice}}, kLines, kForms), filled(tag));
    EXPECT_EQ(of(410, {{"QVFormSelect2", choice}}, kLines, kForms), filled(tag));
  }
  EXPECT_EQ(of(409, {{"QVFormSelect1", "Form10"}}, kLines, kForms),
            filled(std::string(kTag) + "3130"));
}

TEST_F(SpecialWriters, FormIsTheTagOfItsLabelToo) {
  EXPECT_EQ(of(409, {{"QVFormSelect1", "Form sheet 3"}}, kLines, kForms),
            filled(std::string(kTag) + "33"));
}

TEST_F(SpecialWriters, FormCustomFormIsTheWordForm) {
  EXPECT_EQ(of(409, {{"QVFormSelect1", "CustomForm"}}, kLines, kForms), filled("466F726D"));
  EXPECT_EQ(of(410, {{"QVFormSelect2", "CustomForm"}}, kLines, kForms), filled("466F726D"));
}

TEST_F(SpecialWriters, FormOffIsEmpty) {
  EXPECT_EQ(of(409, {{"QVFormSelect1", "Off"}}, kLines, kForms), filled(""));
  EXPECT_EQ(of(409, {{"QVFormSelect1", "Do not use"}}, kLines, kForms), filled(""));
  EXPECT_EQ(of(409, {{"QVFormSelect1", "Off"}}), filled(""));
}

TEST_F(SpecialWriters, FormOfAChoiceSkipsNoLineEvenAsACustomValue) {
  EXPECT_EQ(of(409, {{"QVFormSelect1", "Custom.Form3"}}, kLines, kForms),
            filled(std::string(kTag) + "33"));
}

TEST_F(SpecialWriters, FormOfACustomValueIsSentInHex) {
  EXPECT_EQ(of(409, {{"QVFormSelect1", "Custom.ab"}}, kCustomLines, kForms), filled("6162"));
  EXPECT_EQ(of(410, {{"QVFormSelect2", "OFF"}}, kLines, kForms), filled("4F4646"));
  EXPECT_EQ(of(409, {{"QVFormSelect1", "Form3"}}), filled("466F726D33"));
}

TEST_F(SpecialWriters, FormThatIsNotValidIsEmpty) {
  EXPECT_EQ(of(409, {{"QVFormSelect1", "Custom.a/b"}}, kCustomLines, kForms), filled(""));
  EXPECT_EQ(of(409, {{"QVFormSelect1", std::string(129, 'f')}}, kLines, kForms), filled(""));
  EXPECT_EQ(of(409, {}, kLines, kForms), filled(""));
}

TEST_F(SpecialWriters, BarcodeTextIsSentInHex) {
  EXPECT_EQ(of(205, {{"QVBarcodeSelection", "Custom.A/1"}}, kCustomLines), filled("412F31"));
  EXPECT_EQ(of(205, {{"QVBarcodeSelection", "Area"}}), filled("41726561"));
}

TEST_F(SpecialWriters, BarcodeTextThatIsNotValidIsEmpty) {
  EXPECT_EQ(of(205, {}), filled(""));
  EXPECT_EQ(of(205, {{"QVBarcodeSelection", "OFF"}}), filled(""));
  EXPECT_EQ(of(205, {{"QVBarcodeSelection", "Custom." + std::string(31, 'b')}}, kCustomLines),
            filled(""));
}

TEST_F(SpecialWriters, BarcodeSwitchFollowsTheText) {
  EXPECT_EQ(of(208, {{"QVBarcodeSelection", "Custom.A"}}), filled("On"));
  EXPECT_EQ(of(208, {{"QVBarcodeSelection", "OFF"}}), filled("Off"));
  EXPECT_EQ(of(208, {{"QVBarcodeArea", "On"}}), filled("Off"));
}

TEST_F(SpecialWriters, ProfileAutoAndNotUseAreWrittenByName) {
  EXPECT_EQ(of(206, {{"QVOutputProfileSelection", "Automatic"}}, kLines, kForms), filled("Auto"));
  EXPECT_EQ(of(206, {{"QVOutputProfileSelection", "NotUse"}}, kLines, kForms), filled("NotUse"));
  EXPECT_EQ(of(206, {{"QVOutputProfileSelection", "Without profile"}}, kLines, kForms),
            filled("NotUse"));
}

TEST_F(SpecialWriters, ProfileOfAnotherChoiceIsSentInHex) {
  EXPECT_EQ(of(206, {{"QVOutputProfileSelection", "sRGB"}}, kLines, kForms), filled("73524742"));
  EXPECT_EQ(of(206, {{"QVOutputProfileSelection", "Custom.P_1"}}, kCustomLines, kForms),
            filled("505F31"));
}

TEST_F(SpecialWriters, ProfileThatIsNotValidIsAuto) {
  EXPECT_EQ(of(206, {}), filled("Auto"));
  EXPECT_EQ(of(206, {{"QVOutputProfileSelection", "Custom.a:b"}}, kCustomLines), filled("Auto"));
}

TEST_F(SpecialWriters, IdentitySwitchesFollowTheirTexts) {
  EXPECT_EQ(of(401, {{"QVOwnerNameInfo", "Custom.Eva"}}), filled("On"));
  EXPECT_EQ(of(401, {{"QVOwnerNameInfo", "OFF"}}), filled("Off"));
  EXPECT_EQ(of(401, {{"QVOwnerNameInfo", std::string(21, 'o')}}), filled("Off"));
  EXPECT_EQ(of(401, {{"QVOwnerName", "ON"}}), filled("Off"));
  EXPECT_EQ(of(403, {{"QVJobNameInfo", std::string(255, 'j')}}), filled("On"));
  EXPECT_EQ(of(403, {{"QVJobNameInfo", "a/b"}}), filled("Off"));
}

TEST_F(SpecialWriters, PinSwitchIsOnForDigitsAndOffForTheOffWord) {
  EXPECT_EQ(of(405, {{"QVSecretNumInfo", "Custom.1234"}}), filled("On"));
  EXPECT_EQ(of(405, {{"QVSecretNumInfo", "OFF"}}), filled("Off"));
  EXPECT_EQ(of(405, {{"QVSecretNumInfo", "Custom."}}), filled("On"));
  EXPECT_EQ(of(405, {}), filled("Off"));
}

TEST_F(SpecialWriters, PinIsWrittenInClear) {
  EXPECT_EQ(of(406, {{"QVSecretNumInfo", "Custom.12345678"}}, kCustomLines), filled("12345678"));
  EXPECT_EQ(of(406, {{"QVSecretNumInfo", "0042"}}), filled("0042"));
}

TEST_F(SpecialWriters, PinThatIsNotValidIsEmpty) {
  EXPECT_EQ(of(406, {{"QVSecretNumInfo", "Custom.123456789"}}, kCustomLines), filled(""));
  EXPECT_EQ(of(406, {{"QVSecretNumInfo", "Custom.12a4"}}, kCustomLines), filled(""));
  EXPECT_EQ(of(406, {{"QVSecretNumInfo", "OFF"}}), filled(""));
  EXPECT_EQ(of(406, {}), filled(""));
}

TEST_F(SpecialWriters, OwnerNameIsTheCustomTextElseTheConsoleUser) {
  platform_.consoleUser.user = "eva\t";
  EXPECT_EQ(of(402, {{"QVOwnerNameInfo", "Custom.Max"}}, kCustomLines), filled("4D6178"));
  EXPECT_EQ(of(402, {{"QVOwnerNameInfo", "Custom.M/x"}}, kCustomLines), filled("657661 9"));
  EXPECT_EQ(of(402, {{"QVOwnerNameInfo", "OFF"}}), filled("657661 9"));
  EXPECT_EQ(of(402, {}), filled("657661 9"));
}

TEST_F(SpecialWriters, OwnerNameIsEmptyWithoutAConsoleUser) { EXPECT_EQ(of(402, {}), filled("")); }

TEST_F(SpecialWriters, OwnerNameOfADialogJobIsItsTextElseTheJobOwner) {
  constexpr char kOwner[] = "com.apple.print.JobInfo.PMJobOwner";
  const char* line = "(old) set\nnext\n";
  const Options text{{"PrintPDE", ""},
                     {"QVOwnerName", "OFF"},
                     {"QVOwnerNameTextValueUTF8", "4D"},
                     {kOwner, "owner"}};
  EXPECT_EQ(of(402, text, line), filled("4D"));
  const Options withoutSwitch{
      {"PrintPDE", ""}, {"QVOwnerNameTextValueUTF8", "4D"}, {kOwner, "owner"}};
  EXPECT_EQ(of(402, withoutSwitch, line), filled("owner"));
  const Options emptyText{
      {"PrintPDE", ""}, {"QVOwnerName", "ON"}, {"QVOwnerNameTextValueUTF8", ""}, {kOwner, "owner"}};
  EXPECT_EQ(of(402, emptyText, line), filled("owner"));
  EXPECT_EQ(of(402, {{"PrintPDE", ""}, {"QVOwnerName", "ON"}}, line), filled(""));
}

TEST_F(SpecialWriters, JobNameIsTheCustomTextElseTheTitle) {
  EXPECT_EQ(of(404, {{"QVJobNameInfo", "Custom.ab"}}, kCustomLines), filled("6162"));
  EXPECT_EQ(of(404, {{"QVJobNameInfo", "Custom.a:b"}}, kCustomLines), filled("4D79206A6F62"));
  EXPECT_EQ(of(404, {}), filled("4D79206A6F62"));
}

TEST_F(SpecialWriters, JobNameOfADialogJobIsItsTextInTheBrackets) {
  EXPECT_EQ(of(404, {{"PrintPDE", ""}, {"QVJobName", "ON"}, {"QVJobNameTextValueUTF8", "6162"}},
               "(old) set\nnext\n"),
            filled("6162"));
}

TEST_F(SpecialWriters, JobNameOfADialogJobWithoutTextIsTheTitleInThePlaceholder) {
  EXPECT_EQ(of(404, {{"PrintPDE", ""}}), filled("4D79206A6F62"));
  EXPECT_EQ(of(404, {{"PrintPDE", ""}, {"QVJobNameTextValueUTF8", "6162"}}),
            filled("4D79206A6F62"));
  EXPECT_EQ(of(404, {{"PrintPDE", ""}, {"QVJobName", "ON"}, {"QVJobNameTextValueUTF8", ""}}),
            filled("4D79206A6F62"));
}

TEST_F(SpecialWriters, TrayRepeatFillsTheBracketsOnlyWhenItsButtonIsOn) {
  const char* line = "(XXX) set\nnext\n";
  EXPECT_EQ(of(317,
               {{"PrintPDE", ""},
                {"QVPageTrayRepeatButtonValue", "1"},
                {"QVPageTrayRepeatTextValue", "5"}},
               line),
            filled("5"));
  EXPECT_EQ(of(317, {{"PrintPDE", ""}, {"QVPageTrayRepeatButtonValue", "1"}}, line), filled("0"));
  EXPECT_EQ(of(317, {{"PrintPDE", ""}, {"QVPageTrayRepeatTextValue", "5"}}, line), filled("0"));
  EXPECT_EQ(of(317, {{"PrintPDE", ""}, {"QVPageTrayRepeatTextValue", "5"}}, "(1) set\nnext\n"),
            filled("1"));
  EXPECT_EQ(of(317, {}, line), (Written{false, "", "next\n"}));
}

TEST_F(SpecialWriters, ZoomSwitchIsOnForAnyRateButOff) {
  EXPECT_EQ(of(315, {{"QVZoomRate", "Custom.70"}}), filled("ON"));
  EXPECT_EQ(of(315, {{"QVZoomRate", ""}}), filled("ON"));
  EXPECT_EQ(of(315, {{"QVZoomRate", "OFF"}}), filled("OFF"));
  EXPECT_EQ(of(315, {}), filled("OFF"));
}

TEST_F(SpecialWriters, TargetSizesFillThePlaceholder) {
  EXPECT_EQ(of(302, {{"QVTargetPaperSize", "A5"}}), filled("14800"));
  EXPECT_EQ(of(303, {{"QVTargetPaperSize", "A5"}}), filled("21000"));
  EXPECT_EQ(of(302, {}), filled("21000"));
  EXPECT_EQ(of(303, {}), filled("29700"));
  EXPECT_EQ(of(302, {{"QVTargetPaperSize", "Custom"}}), filled(""));
}

TEST_F(SpecialWriters, TargetSizeOfADialogJobIsCustomSizeForCustomOnly) {
  const char* line = "(A4) set\nnext\n";
  EXPECT_EQ(of(313, {{"PrintPDE", ""}, {"QVTargetPaperSize", "Custom"}}, line),
            filled("CustomSize"));
  EXPECT_EQ(of(313, {{"PrintPDE", ""}, {"QVTargetPaperSize", "A5"}}, line), filled("A4"));
  EXPECT_EQ(of(313, {{"PrintPDE", ""}}, line), filled("A4"));
  EXPECT_EQ(of(313, {{"QVTargetPaperSize", "Custom"}}, line), filled("A4"));
  EXPECT_EQ(of(313, {{"PrintPDE", ""}, {"QVTargetPaperSize", "Custom"}}, ""),
            (Written{false, "", ""}));
}

TEST_F(SpecialWriters, OrientationWordsFollowTheJob) {
  const char* portrait = "(Portrait) Portrait set\nnext\n";
  const char* landscape = "(Landscape) Landscape set\nnext\n";
  const Written toLandscape{true, "(Landscape) Landscape set\n", "next\n"};
  const Written toPortrait{true, "(Portrait) Portrait set\n", "next\n"};
  EXPECT_EQ(of(308, {{"QVOrientation", "1"}}, portrait), toLandscape);
  EXPECT_EQ(of(308, {{"QVOrientation", "Landscape"}}, portrait), toLandscape);
  EXPECT_EQ(of(308, {{"QVOrientation", "0"}}, landscape), toPortrait);
  EXPECT_EQ(of(308, {{"QVOrientation", "Portrait"}}, landscape), toPortrait);
}

TEST_F(SpecialWriters, OrientationLineWithoutTheWordOrChoiceIsUnchanged) {
  EXPECT_EQ(of(308, {{"QVOrientation", "Portrait"}}, "(Portrait) set\nnext\n"), filled("Portrait"));
  EXPECT_EQ(of(308, {{"QVOrientation", "1"}}, "(XXX) set\nnext\n"), filled("XXX"));
  EXPECT_EQ(of(308, {{"QVOrientation", "2"}}, "(Portrait) set\nnext\n"), filled("Portrait"));
}

TEST_F(SpecialWriters, OrientationOfNoOptionSwallowsTheLine) {
  EXPECT_EQ(of(308, {}, "(Portrait) set\nnext\n"), (Written{false, "", "next\n"}));
  EXPECT_EQ(of(308, {{"QVOrientation", "1"}}, ""), (Written{false, "", ""}));
}

TEST_F(SpecialWriters, ZoomRateOfAPlainJobIsLeft) {
  EXPECT_EQ(of(301, {{"QVZoomRate", "70"}}), (Written{false, "", kLines}));
}

TEST_F(SpecialWriters, WriteNothingAtTheEnd) {
  for (const int code :
       {205, 206, 208, 302, 303, 308, 313, 315, 317, 401, 402, 403, 404, 405, 406, 408, 409, 410}) {
    EXPECT_EQ(of(code, {}, ""), (Written{false, "", ""})) << code;
    EXPECT_EQ(of(code, {{"PrintPDE", ""}}, ""), (Written{false, "", ""})) << code;
  }
}

}  // namespace
}  // namespace kelm::psrewrite
