// What a PPD offers, as found in its text: the stage between the text and libcups' record.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelm::ppdtext {

// The code of a choice that has none. A file may have this text as a code; it means the same.
inline constexpr std::u16string_view kNoCode = u"__EMPTY__";

struct ModelChoice {
  std::u16string keyword;
  std::u16string text;
  std::u16string code;  // kNoCode: none
};

struct ModelOption {
  std::u16string keyword;
  std::optional<std::u16string> text;
  std::optional<std::u16string> defaultChoice;
  std::vector<ModelChoice> choices;
};

struct ModelGroup {
  std::u16string keyword;
  std::vector<ModelOption> options;
};

struct ModelAttribute {
  std::u16string name;
  std::u16string value;
};

// One group per group keyword of the file, "General" first. Groups of the same keyword hold the
// same options.
struct Model {
  std::vector<ModelGroup> groups;
  std::vector<ModelAttribute> attributes;
};

// The text as far as it is read: through the first "*CloseGroup: Advanced", else all of it.
std::u16string_view readPart(std::u16string_view text);

// Why a text has no model.
struct ReadProblem {
  enum Kind {
    kNone,
    kNoOption,  // the text has no option with a translation
    kNoChoice,  // the option has no choice line
    kTooSlow,   // keywords with pattern characters took too long, up to this option's own
    kTooMany,   // groups and options of the same names make more than a million choices
  };
  Kind kind = kNone;
  std::u16string option;  // its keyword
  std::size_t line = 0;   // where the file opens the option, from 1
};

struct Reading {
  std::optional<Model> model;
  ReadProblem problem;  // kNone with a model
};

// Reads the whole of `text`, in a time that grows with its size.
Reading readModel(std::u16string_view text);

// The model alone; none when there is a problem.
std::optional<Model> modelOf(std::u16string_view text);

}  // namespace kelm::ppdtext
