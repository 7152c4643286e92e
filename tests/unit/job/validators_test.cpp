// Free texts are checked before they are sent; the system log says what was wrong.
// SPDX-License-Identifier: Apache-2.0
#include "job/validators.hpp"

#include <gmock/gmock.h>

#include <string>

#include "platform/fake/fake_platform.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::job {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::TestJob;

class Validators : public testing::Test {
 protected:
  bool isName(const std::string& text, std::size_t max = 20) {
    return isValidateString(text.c_str(), 1, max, kForbiddenCharacters);
  }
  bool isOwner(const std::string& value) {
    TestJob job({{"QVOwnerNameInfo", value}});
    return isValidateCustomTextValue(&*job, "QVOwnerNameInfo", "OFF", 1, 20, kForbiddenCharacters);
  }
  bool isProfile(const std::string& value) {
    TestJob job({{"QVOutputProfileSelection", value}});
    return isValidateCustomProfileTextValue(&*job, "QVOutputProfileSelection", "Auto", 1, 255);
  }
  bool isPin(const std::string& value) {
    TestJob job({{"QVSecretNumInfo", value}});
    return isValidateCustomSecretNumTextValue(&*job, "QVSecretNumInfo", "OFF", 0, 8);
  }
  bool isForm(const std::string& value) {
    TestJob job({{"QVFormSelect1", value}});
    return isValidateCustomTextValue(&*job, "QVFormSelect1", "Off", 1, 128, kForbiddenCharacters);
  }
  const std::vector<std::string>& log() const { return platform_.systemLog.messages; }

  platform::FakePlatform platform_;
};

TEST_F(Validators, OwnerNameOfTwentyCharactersPasses) {
  EXPECT_TRUE(isOwner("Custom." + std::string(20, 'o')));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(Validators, OwnerNameOfTwentyOneCharactersFailsWithItsLength) {
  EXPECT_FALSE(isOwner("Custom." + std::string(21, 'o')));
  EXPECT_THAT(log(), ElementsAre("[DEBUG] found validate max min : 21"));
}

TEST_F(Validators, EmptyOwnerNameFails) {
  EXPECT_FALSE(isOwner("Custom."));
  EXPECT_FALSE(isOwner(""));
  EXPECT_THAT(log(), ElementsAre("[DEBUG] found validate max min : 0",
                                 "[DEBUG] found validate max min : 0"));
}

TEST_F(Validators, JobNameWithASlashFailsReportingIt) {
  EXPECT_FALSE(isName("a/b"));
  EXPECT_THAT(log(), ElementsAre("[DEBUG] found validate char : /"));
}

TEST_F(Validators, JobNameWithRoundBracketsPasses) { EXPECT_TRUE(isName("a(b)")); }

TEST_F(Validators, ProfileNamePasses) { EXPECT_TRUE(isProfile("My Profile_1")); }

TEST_F(Validators, ProfileNameWithItsFileEndingPasses) {
  EXPECT_TRUE(isProfile("My Profile_1.icc"));
  EXPECT_TRUE(isValidateProfileString("My Profile_1.icc", 1, 255));
}

TEST_F(Validators, ProfileNameOutsideAsciiFailsSilently) {
  EXPECT_FALSE(isProfile("Profil-\xC3\xA9"));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(Validators, ProfileNameWithAColonFailsSilently) {
  EXPECT_FALSE(isProfile("a:b"));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(Validators, PinOfDigitsPasses) { EXPECT_TRUE(isPin("Custom.0042")); }

TEST_F(Validators, PinWithALetterFailsSilently) {
  EXPECT_FALSE(isPin("Custom.42a"));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(Validators, PinOfNineDigitsFailsWithItsLength) {
  EXPECT_TRUE(isPin("12345678"));
  EXPECT_FALSE(isPin("123456789"));
  EXPECT_THAT(log(), ElementsAre("[DEBUG] found validate max min : 9"));
}

TEST_F(Validators, EmptyPinPasses) {
  EXPECT_TRUE(isPin("Custom."));
  EXPECT_TRUE(isPin(""));
}

TEST_F(Validators, FormTextOffInSmallLettersIsNotSet) {
  EXPECT_FALSE(isForm("Off"));
  EXPECT_FALSE(isForm("Custom.Off"));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(Validators, FormTextOffInCapitalsIsAnOrdinaryText) { EXPECT_TRUE(isForm("OFF")); }

TEST_F(Validators, TypographicQuoteFailsAndStraightQuotePasses) {
  EXPECT_FALSE(isName("\xE2\x80\x9Cname"));
  EXPECT_THAT(log(), ElementsAre("[DEBUG] found validate char : \xE2\x80\x9C"));
  EXPECT_TRUE(isName("\"name\""));
}

TEST_F(Validators, EveryForbiddenCharacterFailsAlone) {
  const char* kForbidden[] = {
      "\xE2\x80\x9C", "/", "[", "]", ":", "+", "\xC2\xA6", "<", ">", "=", ";", ",", "*", "?", "\\",
      "\xE2\x80\x98"};
  static_assert(std::size(kForbidden) == 16);
  std::string set;
  for (const char* character : kForbidden) {
    set += character;
    EXPECT_FALSE(isName(std::string("a") + character + "b")) << character;
    EXPECT_EQ(log().back(), std::string("[DEBUG] found validate char : ") + character);
  }
  EXPECT_EQ(kForbiddenCharacters, set);
}

TEST_F(Validators, CharactersThatLookAlikePass) {
  EXPECT_TRUE(isName("'&|()"));
  EXPECT_TRUE(isName("\xE2\x80\x9D\xE2\x80\x99"));  // the closing typographic marks
}

TEST_F(Validators, CharactersAreComparedWhole) {
  EXPECT_TRUE(isName("\xC3\x82 \xE2\x80\x99"));  // shares bytes with the forbidden ones
  EXPECT_FALSE(isName("caf\xC2\xA6"));
}

TEST_F(Validators, OnlyTheFirstOfTheSetIsReported) {
  EXPECT_FALSE(isName("*]/"));
  EXPECT_THAT(log(), ElementsAre("[DEBUG] found validate char : /"));
}

TEST_F(Validators, LengthGoesBeforeCharacters) {
  EXPECT_FALSE(isName("//////////", 3));
  EXPECT_THAT(log(), ElementsAre("[DEBUG] found validate max min : 10"));
}

TEST_F(Validators, EmptySetAcceptsEveryTextOfValidLength) {
  EXPECT_TRUE(isValidateString("/[]:*?", 1, 30, ""));
  EXPECT_FALSE(isValidateString("", 1, 30, ""));
}

TEST_F(Validators, LengthIsCountedInCodeUnits) {
  std::string umlauts;
  for (int i = 0; i < 20; ++i) umlauts += "\xC3\xBC";
  EXPECT_TRUE(isName(umlauts));
  EXPECT_FALSE(isName(umlauts + "x"));
  std::string faces;
  for (int i = 0; i < 10; ++i) faces += "\xF0\x9F\x98\x80";
  EXPECT_TRUE(isName(faces));
  EXPECT_FALSE(isName(faces + "x"));
  EXPECT_THAT(log(), ElementsAre("[DEBUG] found validate max min : 21",
                                 "[DEBUG] found validate max min : 21"));
}

TEST_F(Validators, BothBoundsAreInclusive) {
  EXPECT_FALSE(isValidateString("a", 2, 3, ""));
  EXPECT_TRUE(isValidateString("ab", 2, 3, ""));
  EXPECT_TRUE(isValidateString("abc", 2, 3, ""));
  EXPECT_FALSE(isValidateString("abcd", 2, 3, ""));
}

TEST_F(Validators, TextThatIsNotUtf8HasNoLength) {
  EXPECT_FALSE(isName("caf\xE9"));
  EXPECT_FALSE(isProfile("caf\xE9"));
  EXPECT_THAT(log(), ElementsAre("[DEBUG] found validate max min : 0",
                                 "[DEBUG] found validate max min : 0"));
  EXPECT_TRUE(isValidateString("caf\xE9", 0, 100, ""));
}

TEST_F(Validators, TextThatIsNotUtf8IsNotAscii) {
  EXPECT_FALSE(isValidateProfileString("caf\xE9", 0, 100));
  EXPECT_FALSE(isPin("1\xE9"));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(Validators, ProfileLengthMessageIsTheSame) {
  EXPECT_FALSE(isValidateProfileString("abcd", 1, 3));
  EXPECT_FALSE(isValidateProfileString("", 1, 3));
  EXPECT_THAT(log(), ElementsAre("[DEBUG] found validate max min : 4",
                                 "[DEBUG] found validate max min : 0"));
}

TEST_F(Validators, ProfileSetIsLettersDigitsAndFiveMore) {
  for (int c = 1; c < 0x80; ++c) {
    const char text[] = {static_cast<char>(c), '\0'};
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    const bool expected = letter || (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.' ||
                          c == '\t' || c == ' ';
    EXPECT_EQ(isValidateProfileString(text, 1, 1), expected) << c;
  }
}

TEST_F(Validators, PinSetIsTheTenDigits) {
  for (int c = 1; c < 0x80; ++c) {
    const char text[] = {static_cast<char>(c), '\0'};
    EXPECT_EQ(isValidateSecretNumString(text, 1, 1), c >= '0' && c <= '9') << c;
  }
  EXPECT_FALSE(isValidateSecretNumString("\xEF\xBC\x91", 0, 8));  // a digit, but not in ASCII
}

TEST_F(Validators, OptionMustBePresent) {
  TestJob job(TestJob::Options{{"QVOwnerName", "ON"}});
  EXPECT_FALSE(isValidateCustomTextValue(&*job, "QVOwnerNameInfo", "OFF", 0, 20, ""));
  EXPECT_FALSE(isValidateCustomProfileTextValue(&*job, "QVOwnerNameInfo", "OFF", 0, 20));
  EXPECT_FALSE(isValidateCustomSecretNumTextValue(&*job, "QVOwnerNameInfo", "OFF", 0, 20));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(Validators, OffWordMeansNotSet) {
  EXPECT_FALSE(isOwner("OFF"));
  EXPECT_FALSE(isOwner("Custom.OFF"));
  EXPECT_FALSE(isProfile("Auto"));
  EXPECT_FALSE(isPin("OFF"));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_F(Validators, OffWordIsComparedExactly) {
  EXPECT_TRUE(isOwner("Off"));
  EXPECT_TRUE(isOwner("OFFICE"));
  EXPECT_TRUE(isProfile("AUTO"));
}

TEST_F(Validators, CustomTextIsCutAtASecondFullStop) {
  EXPECT_TRUE(isOwner("Custom.name./"));
  EXPECT_FALSE(isOwner("Custom.a/b.c"));
}

TEST_F(Validators, TextThatFitsNoBufferCountsAsEmpty) {
  EXPECT_FALSE(isOwner(std::string(4096, 'o')));
  EXPECT_TRUE(isPin(std::string(4096, '1')));
  EXPECT_FALSE(isPin(std::string(4095, '1')));
  EXPECT_THAT(log(), ElementsAre("[DEBUG] found validate max min : 0",
                                 "[DEBUG] found validate max min : 4095"));
}

}  // namespace
}  // namespace kelm::job
