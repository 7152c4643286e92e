// The record's fields and its memory.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/record.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/fake/fake_platform.hpp"
#include "tests/unit/ppdtext/test_record.hpp"

namespace kelm::ppdtext {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Allocates memory a number of times; after that, allocations fail.
class LimitedMemory {
 public:
  explicit LimitedMemory(int times) : left_(times) {}
  void* operator()(std::size_t count, std::size_t size) {
    return left_-- > 0 ? std::calloc(count, size) : nullptr;
  }

 private:
  int left_;
};

ModelOption option(std::u16string keyword) {
  return {keyword, u"Text", u"One", {{u"One", u"First", u"1"}, {u"Two", u"Second", u"__EMPTY__"}}};
}

// Two groups of one option each, and two attributes. Memory is allocated for the record, the
// groups, for each group the options, the choices and one code, for the attribute pointers, and
// twice for each attribute.
Model smallModel() {
  return {{{u"General", {option(u"A")}}, {u"Tray", {option(u"B")}}},
          {{u"Foo", u"1"}, {u"Bar", u"2"}}};
}
constexpr int kAllocations = 1 + 1 + 2 * 3 + 1 + 2 * 2;

TEST(RecordFields, AreCutToTheirSizeAndEnded) {
  const std::u16string keyword(41, u'k');
  const std::u16string text(81, u't');
  const Model model{{{u"General", {{keyword, text, keyword, {{keyword, text, u""}}}}}},
                    {{keyword, text}}};
  const Record record(buildRecord(model, std::calloc));
  const ppd_option_t& made = record->groups[0].options[0];
  EXPECT_EQ(made.keyword, std::string(40, 'k'));
  EXPECT_EQ(made.defchoice, std::string(40, 'k'));
  EXPECT_EQ(made.text, std::string(80, 't'));
  EXPECT_EQ(made.choices[0].choice, std::string(40, 'k'));
  EXPECT_EQ(made.choices[0].text, std::string(80, 't'));
  EXPECT_EQ(record->attrs[0]->name, std::string(40, 'k'));
  EXPECT_EQ(record->attrs[0]->value, std::string(81, 't'));
}

TEST(RecordFields, HoldWhatJustFits) {
  const std::u16string keyword(40, u'k');
  const std::u16string text(80, u't');
  const Model model{{{u"General", {{keyword, text, u"", {}}}}}, {}};
  const Record record(buildRecord(model, std::calloc));
  EXPECT_EQ(record->groups[0].options[0].keyword, std::string(40, 'k'));
  EXPECT_EQ(record->groups[0].options[0].text, std::string(80, 't'));
}

TEST(RecordFields, AreNeverCutWithinACharacter) {
  const Model model{{{u"General", {{u"k", u"用" + std::u16string(26, u'用') + u"tä", u"", {}}}}},
                    {}};
  const Record record(buildRecord(model, std::calloc));
  std::string whole;
  for (int i = 0; i < 26; ++i) whole += "用";
  EXPECT_EQ(record->groups[0].options[0].text, whole);
}

TEST(RecordMemory, IsTheWholeRecordWhenThereIsEnough) {
  const platform::FakePlatform system;
  const Record record(buildRecord(smallModel(), LimitedMemory(kAllocations)));
  EXPECT_THAT(optionsByGroup(record), ElementsAre("A", "B"));
  EXPECT_THAT(choicesIn(record, "B"), ElementsAre("One/First=1", "Two/Second=-"));
  EXPECT_THAT(attributesIn(record), ElementsAre("Foo=1", "Bar=2"));
  EXPECT_THAT(system.systemLog.messages, IsEmpty());
}

TEST(RecordMemory, WithoutAnyGivesNoRecordAndAMessage) {
  const platform::FakePlatform system;
  EXPECT_EQ(buildRecord(smallModel(), LimitedMemory(0)), nullptr);
  EXPECT_THAT(system.systemLog.messages, ElementsAre("[Driver] PPD file memory faild!!!"));
}

TEST(RecordMemory, ThatEndsAnywhereGivesWhatWasBuiltAndAMessage) {
  for (int times = 1; times < kAllocations; ++times) {
    const platform::FakePlatform system;
    const Record record(buildRecord(smallModel(), LimitedMemory(times)));
    EXPECT_NE(record, nullptr) << times;
    EXPECT_THAT(system.systemLog.messages, ElementsAre("[Driver] PPD option memory faild!!!"));
  }
}

TEST(RecordMemory, ThatEndsBeforeTheAttributesLeavesTheOptions) {
  const platform::FakePlatform system;
  const Record record(buildRecord(smallModel(), LimitedMemory(8)));
  EXPECT_THAT(optionsByGroup(record), ElementsAre("A", "B"));
  EXPECT_THAT(attributesIn(record), IsEmpty());
}

TEST(RecordMemory, ThatEndsWithinTheOptionsLeavesOutAllThatFollows) {
  const platform::FakePlatform system;
  const Record record(buildRecord(smallModel(), LimitedMemory(5)));
  EXPECT_THAT(optionsByGroup(record), ElementsAre("A", ""));
  EXPECT_EQ(record->num_attrs, 0);
}

}  // namespace
}  // namespace kelm::ppdtext
