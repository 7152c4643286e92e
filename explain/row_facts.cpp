// What the header's rows say about themselves: their variables, options and values.
// SPDX-License-Identifier: Apache-2.0
#include "explain/row_facts.hpp"

#include <algorithm>
#include <map>
#include <utility>

#include "pjl/sequence.hpp"

namespace kelm::explain {
namespace {

// The words of a row's text: "QTY or COPIES", "QVDuplex, QVBookletBinding".
std::vector<std::string> wordsOf(std::string_view text) {
  std::vector<std::string> words;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(" ,;"), text.size());
    if (end > 0) words.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return words;
}

bool isOptionName(const std::string& word) {
  return word.starts_with("QV") || word.starts_with("com.") || word == "media";
}

std::vector<std::string> optionsIn(std::string_view text) {
  std::vector<std::string> words = wordsOf(text);
  std::erase_if(words, [](const std::string& word) { return !isOptionName(word); });
  return words;
}

std::vector<std::string> variablesIn(std::string_view text) {
  std::vector<std::string> words = wordsOf(text);
  std::erase_if(words, [](const std::string& word) { return word == "or" || word == "and"; });
  return words;
}

bool mentionsHex(std::string_view text) { return text.find("hex") != std::string_view::npos; }

RowFacts facts(const pjl::TableVariable& row, bool) {
  return {.kind = ValueKind::kTable,
          .variables = {row.pjlName},
          .options = {row.optionKey},
          .table = row.table};
}

RowFacts facts(const pjl::CopyVariable& row, bool) {
  return {.kind = ValueKind::kCopy,
          .variables = {row.pjlName},
          .options = {row.optionKey},
          .table = {},
          .isHexText = std::string_view(row.optionKey).ends_with("UTF8")};
}

RowFacts facts(const pjl::UpperCaseVariable& row, bool) {
  return {.kind = ValueKind::kUpperCase,
          .variables = {row.pjlName},
          .options = {row.optionKey},
          .table = {}};
}

RowFacts facts(const pjl::OrientationVariable& row, bool) {
  return {.kind = ValueKind::kOrientation,
          .variables = {row.pjlName},
          .options = {row.optionKey},
          .table = {}};
}

RowFacts facts(const pjl::OwnVariable& row, bool isDialogJob) {
  return {
      .kind = ValueKind::kOwn,
      .variables = variablesIn(row.pjlName),
      .options = optionsIn(isDialogJob ? row.dialogSource : row.plainSource),
      .table = {},
      .fallback = row.fallback,
      .writesAllVariables = std::string_view(row.pjlName).find(" and ") != std::string_view::npos,
      .mayHaveNoLine = row.mayHaveNoLine,
      .isHexText = mentionsHex(row.values) || mentionsHex(row.absent)};
}

template <class Row>
RowFacts facts(const pjl::DialogOrPlain<Row>& row, bool isDialogJob) {
  return facts(isDialogJob ? row.dialog : row.plain, isDialogJob);
}

}  // namespace

bool RowFacts::hasChoice(std::string_view name) const {
  return table && std::ranges::any_of(table->rows, [&](const pjl::ValueRow& row) {
           return row.key != nullptr && name == row.key;
         });
}

bool RowFacts::hasOption(std::string_view name) const {
  return std::find(options.begin(), options.end(), name) != options.end();
}

bool lacksChoice(const RowFacts& row, std::string_view variable, std::string_view value) {
  const bool chosen = row.kind == ValueKind::kTable || row.kind == ValueKind::kOrientation ||
                      row.kind == ValueKind::kOwn;
  return chosen && !row.isHexText && variable != "PASSWORD" && value.empty();
}

// A stream is compared with the rows line by line, so the facts are made only once.
const RowFacts& factsOf(const pjl::HeaderStep& step, bool isDialogJob) {
  static std::map<std::pair<const void*, bool>, RowFacts> known;
  return std::visit(
      [&](const auto* row) -> const RowFacts& {
        const auto [place, isNew] = known.try_emplace({row, isDialogJob});
        if (isNew) place->second = facts(*row, isDialogJob);
        return place->second;
      },
      step);
}

std::optional<RowFacts> rowOf(std::string_view option, bool isDialogJob) {
  std::optional<RowFacts> found;
  pjl::forEachStep(isDialogJob, [&](const pjl::HeaderStep& step) {
    const RowFacts& row = factsOf(step, isDialogJob);
    if (!found && row.hasOption(option)) found = row;
  });
  return found;
}

}  // namespace kelm::explain
