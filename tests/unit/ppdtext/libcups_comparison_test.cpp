// What this reader and libcups' parser find in the same files: this driver's own PPD, and PPDs of
// Debian packages. docs/ppd-text.md explains every difference.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdio.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <set>

#include "job/ppd_calls.hpp"
#include "tests/unit/ppdtext/test_file.hpp"
#include "tests/unit/ppdtext/test_record.hpp"

namespace kelm::ppdtext {
namespace {

struct CloseLibcups {
  void operator()(ppd_file_t* ppd) const { job::r_ppdClose(ppd); }
};

// The same file, read by both. The options are sorted by keyword, because this reader lists those
// of a group General twice.
struct Both {
  explicit Both(const std::string& path)
      : text(Record(KelmPPD::ppdOpenFile_(path.c_str()))),
        libcups(job::r_ppdOpenFile(path.c_str())) {
    std::ifstream file(path, std::ios::binary);
    source.assign(std::istreambuf_iterator<char>(file), {});
  }
  static std::map<std::string, const ppd_option_t*> optionsOfRecord(const ppd_file_t& ppd) {
    std::map<std::string, const ppd_option_t*> options;
    for (const ppd_group_t& group : groupsOf(ppd)) {
      for (const ppd_option_t& option : optionsOf(group)) options[option.keyword] = &option;
    }
    return options;
  }
  bool has(const std::string& piece) const { return source.find(piece) != std::string::npos; }

  Record text;
  std::unique_ptr<ppd_file_t, CloseLibcups> libcups;
  std::string source;
};

std::string codeOf(const ppd_choice_t& choice) {
  return choice.code == nullptr ? "-" : choice.code;
}

bool isCustom(const ppd_choice_t& choice) { return std::string_view(choice.choice) == "Custom"; }

// The text of a custom choice is "Custom" in this reader, and the text of its line in libcups.
void expectSameChoices(const ppd_option_t& ours, const ppd_option_t& theirs) {
  ASSERT_EQ(ours.num_choices, theirs.num_choices) << theirs.keyword;
  std::set<std::string> keywords;
  for (const ppd_choice_t& choice : choicesOf(theirs)) {
    const ppd_choice_t* own =
        KelmPPD::ppdFindChoice_choiceKey_(const_cast<ppd_option_t*>(&ours), choice.choice);
    ASSERT_NE(own, nullptr) << theirs.keyword << " " << choice.choice;
    EXPECT_STREQ(own->text, isCustom(choice) ? "Custom" : choice.text) << theirs.keyword;
    EXPECT_EQ(codeOf(*own), codeOf(choice)) << theirs.keyword << " " << choice.choice;
    EXPECT_TRUE(keywords.insert(choice.choice).second) << theirs.keyword;
  }
}

TEST(OwnPpd, IsTheSameToBothOptionByOption) {
  const Both both(KELM_SOURCE_DIRECTORY "/ppd/kelm-ij-dialog.ppd");
  ASSERT_NE(both.text, nullptr);
  ASSERT_NE(both.libcups, nullptr);
  const auto ours = Both::optionsOfRecord(*both.text);
  const auto theirs = Both::optionsOfRecord(*both.libcups);
  EXPECT_EQ(ours.size(), theirs.size());
  for (const auto& [keyword, option] : theirs) {
    ASSERT_TRUE(ours.contains(keyword)) << keyword;
    EXPECT_STREQ(ours.at(keyword)->text, option->text);
    EXPECT_STREQ(ours.at(keyword)->defchoice, option->defchoice);
    expectSameChoices(*ours.at(keyword), *option);
  }
}

TEST(OwnPpd, HasTheSameGroupsInTheSameOrder) {
  const Both both(KELM_SOURCE_DIRECTORY "/ppd/kelm-ij-dialog.ppd");
  ASSERT_NE(both.text, nullptr);
  const auto keywordsOf = [](const ppd_group_t& group) {
    std::multiset<std::string> keywords;
    for (const ppd_option_t& option : optionsOf(group)) keywords.insert(option.keyword);
    return keywords;
  };
  std::vector<std::multiset<std::string>> ours;
  std::vector<std::multiset<std::string>> theirs;
  for (const ppd_group_t& group : groupsOf(*both.text)) {
    if (group.num_options > 0) ours.push_back(keywordsOf(group));
  }
  for (const ppd_group_t& group : groupsOf(*both.libcups)) {
    if (group.num_options > 0) theirs.push_back(keywordsOf(group));
  }
  EXPECT_EQ(ours, theirs);
}

// This reader leaves out an option whose opening line has no translation or is for job control.
void expectExplained(const Both& both, const std::string& keyword) {
  EXPECT_TRUE(both.has("OpenUI *" + keyword + ":") || both.has("JCLOpenUI *" + keyword)) << keyword;
}

// The line of the choice in the file, without the line feed.
std::string lineOf(const Both& both, const std::string& option, const std::string& choice) {
  const std::string begin =
      choice == "Custom" ? "\n*Custom" + option + " True" : "\n*" + option + " " + choice;
  for (const char* next : {"/", ":"}) {
    const std::size_t at = both.source.find(begin + next);
    if (at == std::string::npos) continue;
    return both.source.substr(at + 1, both.source.find('\n', at + 1) - at - 1);
  }
  return "";
}

// This reader leaves out a choice whose line has no translation, or whose code has several lines.
bool isExplained(const std::string& line, bool custom) {
  const bool hasText = custom || line.find('/') < line.find(':');
  return !hasText || std::ranges::count(line, '"') < 2;
}

void expectExplained(const Both& both, const ppd_option_t& ours, const ppd_option_t& theirs) {
  for (const ppd_choice_t& choice : choicesOf(ours)) {
    const auto* known =
        KelmPPD::ppdFindChoice_choiceKey_(const_cast<ppd_option_t*>(&theirs), choice.choice);
    EXPECT_NE(known, nullptr) << theirs.keyword << " " << choice.choice;
  }
  for (const ppd_choice_t& choice : choicesOf(theirs)) {
    const auto* own =
        KelmPPD::ppdFindChoice_choiceKey_(const_cast<ppd_option_t*>(&ours), choice.choice);
    const std::string line = lineOf(both, theirs.keyword, choice.choice);
    EXPECT_NE(own != nullptr, isExplained(line, isCustom(choice)))
        << theirs.keyword << ": " << line;
  }
}

void expectExplained(const Both& both) {
  ASSERT_NE(both.libcups, nullptr);
  ASSERT_NE(both.text, nullptr);
  const auto ours = Both::optionsOfRecord(*both.text);
  for (const auto& [keyword, option] : Both::optionsOfRecord(*both.libcups)) {
    if (ours.contains(keyword)) {
      EXPECT_STREQ(ours.at(keyword)->defchoice, option->defchoice) << keyword;
      expectExplained(both, *ours.at(keyword), *option);
    } else {
      expectExplained(both, keyword);
    }
  }
}

struct Counts {
  const char* name;
  int options;  // of this reader
  int libcupsOptions;
  int choices;
  int libcupsChoices;
};

int choicesIn(const std::map<std::string, const ppd_option_t*>& options) {
  int count = 0;
  for (const auto& [keyword, option] : options) count += option->num_choices;
  return count;
}

void expectCounts(const Both& both, const Counts& counts) {
  SCOPED_TRACE(counts.name);
  expectExplained(both);
  if (both.text == nullptr || both.libcups == nullptr) return;
  const auto ours = Both::optionsOfRecord(*both.text);
  const auto theirs = Both::optionsOfRecord(*both.libcups);
  EXPECT_EQ(std::ssize(ours), counts.options);
  EXPECT_EQ(std::ssize(theirs), counts.libcupsOptions);
  EXPECT_EQ(choicesIn(ours), counts.choices);
  EXPECT_EQ(choicesIn(theirs), counts.libcupsChoices);
}

// The package cups-filters. The option "PageRegion" has no translation in the first two, and all
// options of the others are for job control.
constexpr Counts kCupsFilters[] = {
    {"pxlmono", 5, 6, 30, 43},
    {"pxlcolor", 6, 7, 32, 45},
    {"Fuji_Xerox-DocuPrint_CM305_df-PDF", 0, 8, 0, 49},
    {"Generic-PDF_Printer-PDF", 0, 13, 0, 95},
    {"HP-Color_LaserJet_CM3530_MFP-PDF", 0, 27, 0, 174},
    {"Ricoh-PDF_Printer-PDF", 0, 15, 0, 150},
};

TEST(InstalledPpds, DifferOnlyInWhatIsExplained) {
  for (const Counts& counts : kCupsFilters) {
    expectCounts(Both("/usr/share/ppd/cupsfilters/" + std::string(counts.name) + ".ppd"), counts);
  }
}

// The PPD `name` of the package's archive, as its driver program writes it.
std::string archived(const std::string& name) {
  const std::string command =
      "/usr/lib/cups/driver/foomatic-db-compressed-ppds cat "
      "foomatic-db-compressed-ppds:0/ppd/foomatic-ppd/" +
      name + ".ppd";
  std::string text;
  FILE* program = popen(command.c_str(), "r");
  for (int c = fgetc(program); c != EOF; c = fgetc(program)) text += static_cast<char>(c);
  return pclose(program) == 0 ? text : "";
}

// Each has the option "PageRegion" without a translation. This reader leaves out its choices, and
// the custom page size, whose code has several lines.
constexpr Counts kGeneric[] = {
    {"Generic-PostScript_Printer-Postscript", 4, 5, 29, 44},
    {"Generic-PostScript_Level_1_Printer-Postscript1", 4, 5, 25, 40},
    {"Generic-PCL_6_PCL_XL_Printer-pxlcolor", 6, 7, 37, 52},
};

TEST(GenericPpds, DifferOnlyInWhatIsExplained) {
  const TestDirectory directory;
  for (const Counts& counts : kGeneric) {
    expectCounts(Both(directory.write(counts.name, archived(counts.name))), counts);
  }
}

}  // namespace
}  // namespace kelm::ppdtext
