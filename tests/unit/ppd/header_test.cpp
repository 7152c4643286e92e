// The PPD's options against the rows of the header: choices, options, and what defaults mean.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <strings.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <variant>

#include "job/forms.hpp"
#include "pjl/paper_tables.hpp"
#include "pjl/sequence.hpp"
#include "pjl/value_tables.hpp"
#include "platform/fake/fake_platform.hpp"
#include "psrewrite/features.hpp"
#include "tests/support/memory_job.hpp"
#include "tests/unit/ppd/description.hpp"

namespace kelm::tests {
namespace {

using Names = std::set<std::string>;

// What the header reads: the choices of options that go through a table, and the options that are
// copied or have a writer of their own.
struct HeaderSources {
  std::map<std::string, Names> choices;
  Names others;
};

void addTable(HeaderSources& sources, const char* option, std::span<const base::ValueRow> rows) {
  for (const base::ValueRow& row : rows) {
    if (row.key != nullptr) sources.choices[option].insert(row.key);
  }
}

// Collects the options that one row reads for a plain job.
struct Collector {
  HeaderSources& sources;

  void operator()(const pjl::TableVariable* row) { add(*row); }
  void operator()(const pjl::CopyVariable* row) { add(*row); }
  void operator()(const pjl::UpperCaseVariable* row) { add(*row); }
  void operator()(const pjl::OrientationVariable* row) {
    for (const pjl::OrientationRow& each : row->rows) {
      sources.choices[row->optionKey].insert(each.name);
    }
  }
  template <class Row>
  void operator()(const pjl::DialogOrPlain<Row>* row) {
    add(row->plain);
  }
  // Such a row names its sources in prose.
  void operator()(const pjl::OwnVariable* row) {
    const std::string prose = row->plainSource;
    for (std::size_t at = prose.find("QV"); at != prose.npos; at = prose.find("QV", at)) {
      const std::size_t start = at;
      while (at < prose.size() && std::isalnum(static_cast<unsigned char>(prose[at]))) ++at;
      sources.others.insert(prose.substr(start, at - start));
    }
  }

  void add(const pjl::TableVariable& row) { addTable(sources, row.optionKey, row.table.rows); }
  void add(const pjl::CopyVariable& row) { sources.others.insert(row.optionKey); }
  void add(const pjl::UpperCaseVariable& row) { sources.others.insert(row.optionKey); }
};

// Tables that belong to writers with logic of their own.
void addOwnTables(HeaderSources& sources) {
  addTable(sources, "QVOutputFace", pjl::kOutputFace.rows);
  addTable(sources, "QVTargetPaperSize", pjl::kTargetPaperNames.rows);
  addTable(sources, "QVFormSelect1", job::kFormTags);
  addTable(sources, "QVFormSelect2", job::kFormTags);
  addTable(sources, "PageSize", pjl::kPaperNames.rows);
  sources.choices["QVDuplex"] = {"OFF", "LongEdge", "ShortEdge"};
  sources.choices["QVOutputProfileSelection"] = {"Auto", "NotUse"};
}

HeaderSources headerSources(bool dialogOnly) {
  HeaderSources sources;
  for (const pjl::HeaderSection& section : pjl::headerSections()) {
    if (section.dialogOnly != dialogOnly) continue;
    for (const pjl::HeaderStep& step : section.steps) std::visit(Collector{sources}, step);
  }
  if (!dialogOnly) addOwnTables(sources);
  return sources;
}

// The tables of all sections of the header, those of dialog jobs included.
std::map<std::string, Names> allTables() {
  std::map<std::string, Names> tables = headerSources(false).choices;
  tables.merge(headerSources(true).choices);
  return tables;
}

// Keys that the maker's dialog and CUPS set. They are not options of the PPD.
bool isValueKey(const std::string& key) {
  return key.ends_with("Value") || key.ends_with("Value100");
}

std::string header(const TestJob::Options& options) {
  TestJob job(options, kDialogModel);
  MemoryOutput output;
  pjl::OutputPJL(output.stream(), *job);
  return output.text();
}

TEST(HeaderTables, HaveARowForEveryChoiceOfThePpd) {
  const Description description;
  for (const auto& [keyword, rows] : allTables()) {
    const Option* option = description.find(keyword);
    if (option == nullptr) continue;
    for (const std::string& choice : option->choiceNames()) {
      EXPECT_THAT(rows, testing::Contains(choice)) << keyword;
    }
  }
}

// A row without a choice of its own is a second spelling of one (CUPS sends "true" for "True"),
// or the choice "Custom", a name that CUPS refuses.
TEST(HeaderTables, HaveNoRowWithoutAChoiceOfThePpd) {
  const Description description;
  for (const auto& [keyword, rows] : allTables()) {
    const Option* option = description.find(keyword);
    if (option == nullptr) continue;
    Names missing;
    for (const std::string& row : rows) {
      const bool found = std::ranges::any_of(option->choices, [&](const Choice& choice) {
        return strcasecmp(choice.name.c_str(), row.c_str()) == 0;
      });
      if (!found) missing.insert(row);
    }
    const Names expected = keyword == "QVDateSpecify" ? Names{"Custom"} : Names{};
    EXPECT_EQ(expected, missing) << keyword;
  }
}

TEST(HeaderTables, ReadNoOptionThatThePpdLacks) {
  const Description description;
  const HeaderSources plain = headerSources(false);
  Names keys = plain.others;
  for (const auto& [keyword, rows] : plain.choices) keys.insert(keyword);
  for (const std::string& key : keys) {
    EXPECT_TRUE(isValueKey(key) || description.find(key) != nullptr)
        << key << " is no option of ppd/kelm-ij-dialog.ppd";
  }
}

TEST(HeaderTables, AndFeaturesTogetherKnowEveryOptionOfThePpd) {
  const Description description;
  const HeaderSources plain = headerSources(false);
  for (const Option* option : description.printerOptions()) {
    const bool inHeader =
        plain.choices.contains(option->keyword) || plain.others.contains(option->keyword);
    const bool isFeature = std::ranges::any_of(psrewrite::features(), [&](const auto& feature) {
      return feature.keyword == option->keyword;
    });
    EXPECT_TRUE(inHeader || isFeature)
        << option->keyword << " has neither a header variable nor a feature section";
  }
}

// Other tests compare the papers with the table of papers, and the standard options with theirs.
TEST(HeaderTables, LeaveOutPapersAndTheStandardOptions) {
  const Description description;
  std::set<std::string> others;
  for (const Option& option : description.options()) {
    if (!option.keyword.starts_with("QV")) others.insert(option.keyword);
  }
  EXPECT_EQ((std::set<std::string>{"PageSize", "PageRegion", "Duplex", "InputSlot", "MediaType",
                                   "ColorModel", "OutputBin", "Collate"}),
            others)
      << "each standard option of the PPD must be named here";
}

TEST(Default, IsAChoiceOfItsOption) {
  const Description description;
  for (const Option& option : description.options()) {
    EXPECT_TRUE(option.hasChoice(option.defaultChoice)) << option.keyword;
  }
}

TEST(Default, MeansTheSameAsAnAbsentOption) {
  platform::FakePlatform platform;
  const Description description;
  const std::string absent = header({});
  TestJob::Options all;
  for (const Option* option : description.printerOptions()) {
    EXPECT_EQ(absent, header({{option->keyword, option->defaultChoice}})) << option->keyword;
    all.emplace_back(option->keyword, option->defaultChoice);
  }
  EXPECT_EQ(absent, header(all));
}

TEST(Default, PaperMeansTheSameAsNoMedia) {
  platform::FakePlatform platform;
  EXPECT_EQ(header({}), header({{"media", Description().find("PageSize")->defaultChoice}}));
}

TEST(Default, OutputFaceMeansTheSameAsNoneWhereTheTrayLeavesTheFaceToTheJob) {
  platform::FakePlatform platform;
  const std::string face = Description().find("QVOutputFace")->defaultChoice;
  EXPECT_EQ(header({{"QVOutputTray", "Stacker"}}),
            header({{"QVOutputTray", "Stacker"}, {"QVOutputFace", face}}));
}

// The maker's dialog takes sheets from tray 1 where plain dialogs take the standard tray.
TEST(Default, MeansTheSameInADialogJobButForSheetTrays) {
  platform::FakePlatform platform;
  const Names sheetTrays = {"QVBookletCoverSheetTray", "QVJobSepSheetTray", "QVFrontCoverSheetTray",
                            "QVBackCoverSheetTray"};
  const std::string absent = header({{"PrintPDE", "1"}});
  const Description description;
  for (const Option* option : description.printerOptions()) {
    const std::string chosen =
        header({{"PrintPDE", "1"}, {option->keyword, option->defaultChoice}});
    EXPECT_EQ(sheetTrays.contains(option->keyword), absent != chosen) << option->keyword;
  }
}

}  // namespace
}  // namespace kelm::tests
