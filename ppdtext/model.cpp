// What a PPD offers, as found in its text: the stage between the text and libcups' record.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/model.hpp"

#include <map>
#include <string>
#include <unordered_map>
#include <utility>

#include "ppdtext/pattern.hpp"
#include "ppdtext/ppd_text.hpp"

namespace kelm::ppdtext {
namespace {

constexpr std::u16string_view kEndOfReading = u"*CloseGroup: Advanced";

// The number of capture groups tells the kinds of choice lines apart, so a keyword with capture
// groups of its own changes the kind.
constexpr std::size_t kChoiceCaptures = 3;
constexpr std::size_t kCustomChoiceCaptures = 2;

constexpr std::u16string_view kCustom = u"Custom";

// CUPS' twin of "PageSize"; its custom sizes have no line of their own.
constexpr std::u16string_view kPageRegion = u"PageRegion";

// No model has more choices than this, counted in every group that has them: a file may name the
// same groups and options again and again.
constexpr std::size_t kMostChoices = std::size_t{1} << 20;

std::optional<std::u16string> piece(std::u16string_view text, std::optional<TextRange> range) {
  return range ? std::optional(std::u16string(pieceOf(text, *range))) : std::nullopt;
}

std::optional<ModelChoice> choiceOf(std::u16string_view text, const Match& match) {
  std::optional<std::u16string> keyword(kCustom);
  std::optional<std::u16string> shown(kCustom);
  std::optional<std::u16string> code;
  if (match.captureCount() == kChoiceCaptures) {
    keyword = captured(text, match, 1);
    shown = captured(text, match, 2);
    code = captured(text, match, kChoiceCaptures);
  } else if (match.captureCount() == kCustomChoiceCaptures) {
    code = captured(text, match, kCustomChoiceCaptures);
  }
  if (!keyword || !shown || !code) return std::nullopt;
  return ModelChoice{std::move(*keyword), std::move(*shown), std::move(*code)};
}

void appendChoices(std::vector<ModelChoice>& choices, std::u16string_view text,
                   const std::vector<Match>& matches) {
  for (const Match& match : matches) {
    if (auto choice = choiceOf(text, match)) choices.push_back(std::move(*choice));
  }
}

struct GroupedOption {
  std::u16string group;
  ModelOption option;
  bool hasChoiceLine;
};

// Reads the options of one text.
class OptionReader {
 public:
  OptionReader(const PPDText& ppd, const SearchBudget& budget)
      : ppd_(ppd),
        budget_(budget),
        groupKeywords_(ppd.groupKeywords()),
        ranges_(ppd.groupRanges(groupKeywords_)),
        finder_(ranges_) {}

  Reading read();

 private:
  // The option of `keyword` in its group; null when it has no range.
  const GroupedOption* optionOf(std::u16string_view keyword);
  GroupedOption readOption(std::u16string_view keyword, TextRange range) const;
  ReadProblem problemIn(TextRange keyword, ReadProblem::Kind kind) const {
    return {kind, std::u16string(pieceOf(ppd_.text(), keyword)), ppd_.lineNumber(keyword.start)};
  }
  // Why the option cannot be added to its group.
  ReadProblem addOption(TextRange keyword);
  std::optional<std::vector<ModelGroup>> groups() const;

  const PPDText& ppd_;
  const SearchBudget& budget_;
  std::vector<std::u16string> groupKeywords_;
  GroupRanges ranges_;
  GroupFinder finder_;
  std::unordered_map<std::u16string_view, std::optional<GroupedOption>> found_;
  std::map<std::u16string, std::vector<ModelOption>> optionsByGroup_;
  std::size_t choices_ = 0;
};

// The option's choices are those of its section, then the custom ones of the whole text.
GroupedOption OptionReader::readOption(std::u16string_view keyword, TextRange range) const {
  const std::u16string_view text = ppd_.text();
  const auto own = ppd_.choices(keyword, range);
  const auto custom = ppd_.customChoices(keyword);
  std::vector<ModelChoice> choices;
  appendChoices(choices, text, own);
  appendChoices(choices, text, custom);
  if (keyword == kPageRegion) {
    choices.push_back({std::u16string(kCustom), std::u16string(kCustom), std::u16string(kNoCode)});
  }
  return {finder_.holding(range),
          {std::u16string(keyword), piece(text, ppd_.optionText(keyword, range)),
           piece(text, ppd_.optionDefault(keyword, range)), std::move(choices)},
          !own.empty() || !custom.empty()};
}

const GroupedOption* OptionReader::optionOf(std::u16string_view keyword) {
  const auto [entry, isNew] = found_.try_emplace(keyword);
  if (isNew) {
    const TextRange range = ppd_.optionRange(keyword);
    if (range != TextRange()) entry->second = readOption(keyword, range);
  }
  return entry->second ? &*entry->second : nullptr;
}

ReadProblem OptionReader::addOption(TextRange keyword) {
  const GroupedOption* option = optionOf(pieceOf(ppd_.text(), keyword));
  if (budget_.isExceeded()) return problemIn(keyword, ReadProblem::kTooSlow);
  if (option == nullptr) return {};
  if (!option->hasChoiceLine) return problemIn(keyword, ReadProblem::kNoChoice);
  choices_ += option->option.choices.size();
  if (choices_ > kMostChoices) return problemIn(keyword, ReadProblem::kTooMany);
  optionsByGroup_[option->group].push_back(option->option);
  return {};
}

// Nothing if groups with the same keyword have too many options together.
std::optional<std::vector<ModelGroup>> OptionReader::groups() const {
  std::vector<ModelGroup> groups;
  std::size_t choices = 0;
  for (const std::u16string& keyword : groupKeywords_) {
    const auto found = optionsByGroup_.find(keyword);
    groups.push_back({keyword, {}});
    if (found == optionsByGroup_.end()) continue;
    for (const ModelOption& option : found->second) choices += option.choices.size();
    if (choices > kMostChoices) return std::nullopt;
    groups.back().options = found->second;
  }
  return groups;
}

Reading OptionReader::read() {
  const std::vector<TextRange> keywords = ppd_.optionKeywords();
  if (keywords.empty()) return {std::nullopt, {ReadProblem::kNoOption, u"", 0}};
  for (const TextRange keyword : keywords) {
    ReadProblem problem = addOption(keyword);
    if (problem.kind != ReadProblem::kNone) return {std::nullopt, std::move(problem)};
  }
  auto groups = this->groups();
  if (!groups) return {std::nullopt, problemIn(keywords.back(), ReadProblem::kTooMany)};
  return {Model{std::move(*groups), {}}, {}};
}

// The text between the first and the last double quote; all of it when there are no two.
std::u16string_view unquoted(std::u16string_view value) {
  const std::size_t first = value.find(u'"');
  const std::size_t last = value.rfind(u'"');
  return first == last ? value : value.substr(first + 1, last - first - 1);
}

std::vector<ModelAttribute> attributesOf(const PPDText& ppd) {
  std::vector<ModelAttribute> attributes;
  for (const auto& [name, value] : ppd.attributes()) {
    attributes.push_back({std::u16string(pieceOf(ppd.text(), name)),
                          std::u16string(unquoted(pieceOf(ppd.text(), value)))});
  }
  return attributes;
}

}  // namespace

std::u16string_view readPart(std::u16string_view text) {
  const std::size_t at = text.find(kEndOfReading);
  return at == std::u16string_view::npos ? text : text.substr(0, at + kEndOfReading.size());
}

Reading readModel(std::u16string_view text) {
  SearchBudget budget(text);
  const PPDText ppd(text, budget);
  Reading reading = OptionReader(ppd, budget).read();
  if (reading.model) reading.model->attributes = attributesOf(ppd);
  return reading;
}

std::optional<Model> modelOf(std::u16string_view text) { return readModel(text).model; }

}  // namespace kelm::ppdtext
