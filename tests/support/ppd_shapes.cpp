// PPD files of many shapes and of any size.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/ppd_shapes.hpp"

#include <cstddef>

namespace kelm::tests {
namespace {

std::string number(int i) { return std::to_string(i); }

std::string choiceLines(const std::string& option, int choices) {
  std::string lines;
  for (int i = 0; i < choices; ++i) {
    const std::string choice = "Choice" + number(i);
    lines += "*" + option + " " + choice + "/Shown " + choice + ": \"<</Setting " + number(i) +
             ">> setpagedevice\"\n";
    lines += "*de." + option + " " + choice + "/Gezeigt " + choice + ": \"\"\n";
  }
  return lines;
}

std::string option(int i, int choices, bool isClosed = true) {
  const std::string name = "QVOption" + number(i);
  return "*OpenUI *" + name + "/Option " + name + ": PickOne\n*OrderDependency: " + number(i) +
         " AnySetup *" + name + "\n*Default" + name + ": Choice0\n*de.Translation " + name +
         "/Auswahl " + name + ": \"\"\n" + choiceLines(name, choices) +
         (isClosed ? "*CloseUI: *" + name + "\n\n" : "\n");
}

std::string ppdOptions(int n) {
  std::string text;
  for (int i = 0; i < n; ++i) text += option(i, 6);
  return text;
}

std::string unclosedOptions(int n) {
  std::string text = "\n";
  for (int i = 0; i < n; ++i) text += "*OpenUI *A" + number(i) + "/A: PickOne\n";
  for (int i = 0; i < n; ++i) text += "*CustomA" + number(i) + " True: \"own\"\n";
  return text;
}

std::string nestedOptions(int n) {
  std::string text;
  for (int i = 0; i < n; ++i) text += "*OpenUI *A" + number(i) + "/A: PickOne\n";
  for (int i = 0; i < n; ++i) text += "*A" + number(i) + " B/B: \"\"\n";
  for (int i = 0; i < n; ++i) text += "*CloseUI: *A" + number(i) + "\n";
  return text;
}

std::string groups(int n) {
  std::string text;
  for (int i = 0; i < n; ++i) {
    const std::string name = "Group" + number(i);
    text += "*OpenGroup: " + name + "/The " + name + "\n" + option(i, 1) + "*CloseGroup: " + name +
            "\n";
  }
  return text;
}

std::string unclosedGroups(int n) {
  std::string text;
  for (int i = 0; i < n; ++i) text += "*OpenGroup: Group" + number(i) + "/G\n" + option(i, 1);
  return text;
}

std::string choices(int n) { return option(0, n); }

// Translations of one option and its choices, in languages that are not asked for, and last in
// German.
std::string translations(int n) {
  std::string text = option(0, 1);
  for (int i = 0; i < n; ++i) {
    text += "*x" + number(i) + ".QVOption0 Choice0/Text " + number(i) + ": \"\"\n";
  }
  return text + "*de.QVOption0 Choice0/Letzter: \"\"\n";
}

std::string stars(int n) { return option(0, 1) + std::string(static_cast<std::size_t>(n), '*'); }

std::string marksInALine(int n) {
  std::string text = option(0, 1);
  for (int i = 0; i < n; ++i) text += "*OpenGroup: *QVOption0 a/b:*CloseUI: *Custom";
  return text;
}

// Keywords that are patterns and match themselves. Each is searched for in the whole text, within a
// budget that grows with the text.
std::string patternKeywords(int n) {
  std::string text;
  for (const std::string name : {"QV.Set", "QV.+Tray", "QV.*Colour"}) {
    text +=
        "*OpenUI *" + name + "/Odd: PickOne\n*" + name + " On/On: \"\"\n*CloseUI: *" + name + "\n";
  }
  return text + ppdOptions(n);
}

constexpr PpdShape kPpdShapes[] = {
    {"options", 2000, ppdOptions},
    {"options without close", 2000, unclosedOptions},
    {"nested options", 2000, nestedOptions},
    {"groups", 2000, groups},
    {"groups without close", 2000, unclosedGroups},
    {"choices of one option", 10000, choices},
    {"translations", 20000, translations},
    {"asterisks in a run", 50000, stars},
    {"marks in one line", 5000, marksInALine},
    {"keywords with patterns", 1000, patternKeywords},
};

}  // namespace

std::span<const PpdShape> ppdShapes() { return kPpdShapes; }

std::string ppdOf(const PpdShape& shape, int size) {
  return "*PPD-Adobe: \"4.3\"\n*cupsLanguages: \"en de\"\n" + shape.text(size);
}

}  // namespace kelm::tests
