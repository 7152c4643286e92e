// What this reader and libcups' parser say of the same files: this driver's own, and PPDs that
// Debian packages install. docs/ppd-text.md explains every difference.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdio.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <set>

#include "filter/ppd_calls.hpp"
#include "tests/unit/ppdtext/test_file.hpp"
#include "tests/unit/ppdtext/test_record.hpp"

namespace kelm::ppdtext {
namespace {

struct CloseLibcups {
  void operator()(ppd_file_t* ppd) const { filter::r_ppdClose(ppd); }
};

// The same file, read twice. Options by their keyword: this reader gives those of the file's own
// group General twice.
struct Both {
  explicit Both(const std::string& path)
      : text(Record(KelmPPD::ppdOpenFile_(path.c_str()))),
        libcups(filter::r_ppdOpenFile(path.c_str())) {
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

// Custom choices have the text "Custom" here, and the text of their line there.
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
  const Both both(KELM_SOURCE_FOLDER "/ppd/kelm-ij.ppd");
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
  const Both both(KELM_SOURCE_FOLDER "/ppd/kelm-ij.ppd");
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

// An option is missing here when its open line has no translation, or is one of job control.
void expectExplained(const Both& both, const std::string& keyword) {
  EXPECT_TRUE(both.has("OpenUI *" + keyword + ":") || both.has("JCLOpenUI *" + keyword)) << keyword;
}

// A choice is missing here when its line has no translation, or its code goes beyond the line.
void expectKnownChoices(const ppd_option_t& ours, const ppd_option_t& theirs) {
  EXPECT_LE(ours.num_choices, theirs.num_choices) << theirs.keyword;
  for (const ppd_choice_t& choice : choicesOf(ours)) {
    const auto* known =
        KelmPPD::ppdFindChoice_choiceKey_(const_cast<ppd_option_t*>(&theirs), choice.choice);
    EXPECT_NE(known, nullptr) << theirs.keyword << " " << choice.choice;
  }
}

void expectExplained(const Both& both) {
  ASSERT_NE(both.libcups, nullptr);
  ASSERT_NE(both.text, nullptr);
  const auto ours = Both::optionsOfRecord(*both.text);
  for (const auto& [keyword, option] : Both::optionsOfRecord(*both.libcups)) {
    if (ours.contains(keyword)) {
      EXPECT_STREQ(ours.at(keyword)->defchoice, option->defchoice) << keyword;
      expectKnownChoices(*ours.at(keyword), *option);
    } else {
      expectExplained(both, keyword);
    }
  }
}

TEST(InstalledPpds, DifferOnlyInWhatIsExplained) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/usr/share/ppd/cupsfilters")) {
    SCOPED_TRACE(entry.path());
    expectExplained(Both(entry.path()));
    ++files;
  }
  EXPECT_GE(files, 4);
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

struct Counts {
  const char* name;
  std::size_t options;         // here
  std::size_t libcupsOptions;  // there
};

// Each has the option "PageRegion" without a translation, which is what is missing here.
constexpr Counts kGeneric[] = {
    {"Generic-PostScript_Printer-Postscript", 4, 5},
    {"Generic-PostScript_Level_1_Printer-Postscript1", 4, 5},
    {"Generic-PCL_6_PCL_XL_Printer-pxlcolor", 6, 7},
};

TEST(GenericPpds, DifferOnlyInWhatIsExplained) {
  const TestFolder folder;
  for (const Counts& counts : kGeneric) {
    SCOPED_TRACE(counts.name);
    const Both both(folder.write(counts.name, archived(counts.name)));
    expectExplained(both);
    if (both.text == nullptr) continue;
    EXPECT_EQ(Both::optionsOfRecord(*both.text).size(), counts.options);
    EXPECT_EQ(Both::optionsOfRecord(*both.libcups).size(), counts.libcupsOptions);
  }
}

}  // namespace
}  // namespace kelm::ppdtext
