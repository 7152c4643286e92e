// The values that a variable of the header can have.
// SPDX-License-Identifier: Apache-2.0
#include "explain/header_values.hpp"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string>

#include "explain/labels.hpp"
#include "explain/words.hpp"
#include "job/paper.hpp"
#include "job/text_fields.hpp"
#include "job/validators.hpp"

namespace kelm::explain {
namespace {

enum class Form {
  kSwitch,       // ON or OFF
  kBinding,      // the edge of two-sided sheets
  kFace,         // the side that is up
  kOrientation,  // of the pages
  kCount,        // 1 or more
  kLength,       // 0 or more
  kNumber,       // with a sign, with decimals
  kPaper,        // a name of the printer's papers
  kTargetPaper,  // the same, or AUTO
  kProfile,      // a text in hex, or one of two words
  kPin,
};

struct FormOf {
  std::string_view variable;
  Form form;
};
// Variables without a table of their own.
constexpr FormOf kForms[] = {
    {"QVMANUALZOOM", Form::kSwitch},
    {"QVZOOMRATE", Form::kNumber},
    {"QTY", Form::kCount},
    {"COPIES", Form::kCount},
    {"DUPLEX", Form::kSwitch},
    {"BINDING", Form::kBinding},
    {"QVPAGESIZE", Form::kPaper},
    {"QVPAGESIZEWIDTH", Form::kLength},
    {"QVPAGESIZEHEIGHT", Form::kLength},
    {"ORIENTATION", Form::kOrientation},
    {"PAPER", Form::kTargetPaper},
    {"QVTARGETPAPERSIZEWIDTH", Form::kLength},
    {"QVTARGETPAPERSIZEHEIGHT", Form::kLength},
    {"QVIMAGESHIFTFRONTV", Form::kNumber},
    {"QVIMAGESHIFTFRONTH", Form::kNumber},
    {"QVIMAGESHIFTBACKV", Form::kNumber},
    {"QVIMAGESHIFTBACKH", Form::kNumber},
    {"QVGCCYAN", Form::kNumber},
    {"QVGCMAGENTA", Form::kNumber},
    {"QVGCYELLOW", Form::kNumber},
    {"QVGCBLACK", Form::kNumber},
    {"QVGCGRAY", Form::kNumber},
    {"QVGCRED", Form::kNumber},
    {"QVBARCODEAREA", Form::kSwitch},
    {"QVOUTPUTPROFILESELECTION", Form::kProfile},
    {"QVGUTTERDISTANCE", Form::kNumber},
    {"QVBOOKLETGUTTERDISTANCE", Form::kNumber},
    {"QVOUTPUTFACE", Form::kFace},
    {"QVOWNERNAME", Form::kSwitch},
    {"QVJOBNAME", Form::kSwitch},
    {"QVSECRETNUM", Form::kSwitch},
    {"PASSWORD", Form::kPin},
};

bool isOneOf(std::string_view value, std::initializer_list<std::string_view> words) {
  return std::ranges::find(words, value) != words.end();
}

bool isDecimal(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos) return isDigits(text);
  return isDigits(text.substr(0, point)) && isDigits(text.substr(point + 1));
}

bool isPaper(std::string_view value) {
  return value == "CUSTOMSIZE" || std::ranges::any_of(job::kPapers, [&](const job::Paper& paper) {
           return value == paper.pjlName;
         });
}

bool isHexText(std::string_view value) { return value.empty() || !decodedText(value).empty(); }

bool isPin(std::string_view value) {
  const std::string text(value);
  return text.empty() || job::isValidateSecretNumString(text.c_str(), 1, job::kSecretNum.max);
}

bool hasForm(Form form, std::string_view value) {
  switch (form) {
    case Form::kSwitch:
      return isOneOf(value, {"ON", "OFF"});
    case Form::kBinding:
      return isOneOf(value, {"OFF", "LONGEDGE", "SHORTEDGE"});
    case Form::kFace:
      return isOneOf(value, {"FACEUP", "FACEDOWN"});
    case Form::kOrientation:
      return isOneOf(value, {"PORTRAIT", "LANDSCAPE"});
    case Form::kCount:
      return isDigits(value) && value.find_first_not_of('0') != std::string_view::npos;
    case Form::kLength:
      return isDigits(value);
    case Form::kNumber:
      return isDecimal(value);
    case Form::kPaper:
      return isPaper(value);
    case Form::kTargetPaper:
      return value == "AUTO" || isPaper(value);
    case Form::kProfile:
      return isOneOf(value, {"AUTO", "NOTUSE"}) || isHexText(value);
    case Form::kPin:
      return isPin(value);
  }
  return true;
}

}  // namespace

bool isPossibleValue(const RowFacts& row, std::string_view variable, std::string_view value) {
  if (row.table) {
    return std::ranges::any_of(row.table->rows, [&](const pjl::ValueRow& choice) {
      return choice.value != nullptr && value == choice.value;
    });
  }
  const auto known = std::ranges::find(kForms, variable, &FormOf::variable);
  if (known != std::end(kForms)) return hasForm(known->form, value);
  return !row.isHexText || isHexText(value);
}

}  // namespace kelm::explain
