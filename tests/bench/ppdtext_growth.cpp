// How the time for a PPD grows with its size, shape by shape: reading it as text, showing it in a
// language, and marking its defaults. Prints milliseconds of processor time, the best of a few
// runs; fails when four times the size takes more than six times the time.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include "ppdtext/kelm_ppd.hpp"
#include "ppdtext/localizer.hpp"
#include "ppdtext/model.hpp"
#include "ppdtext/record.hpp"
#include "ppdtext/unicode_text.hpp"

namespace {

constexpr int kRuns = 3;
constexpr double kMostGrowth = 6;
constexpr double kNoise = 3;  // milliseconds that count for nothing

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

std::string options(int n) {
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

std::string stars(int n) { return option(0, 1) + std::string(static_cast<std::size_t>(n), '*'); }

std::string marksInALine(int n) {
  std::string text = option(0, 1);
  for (int i = 0; i < n; ++i) text += "*OpenGroup: *QVOption0 a/b:*CloseUI: *Custom";
  return text;
}

struct Shape {
  const char* name;
  int size;  // a file of some milliseconds
  std::string (*text)(int size);
};

constexpr Shape kShapes[] = {
    {"options", 2000, options},
    {"options without close", 2000, unclosedOptions},
    {"nested options", 2000, nestedOptions},
    {"groups", 2000, groups},
    {"groups without close", 2000, unclosedGroups},
    {"choices of one option", 10000, choices},
    {"asterisks in a run", 50000, stars},
    {"marks in one line", 5000, marksInALine},
};

struct Times {
  double read = 1e9;
  double show = 1e9;
  double mark = 1e9;
  double all() const { return read + show + mark; }
};

double now() { return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// Ends the program when the file cannot be read or shown: its times would say nothing.
void measure(const std::u16string& text, Times& best) {
  double start = now();
  const auto model = kelm::ppdtext::modelOf(text);
  const kelm::ppdtext::Record record(model ? kelm::ppdtext::buildRecord(*model, std::calloc)
                                           : nullptr);
  best.read = std::min(best.read, now() - start);
  start = now();
  if (!record || !kelm::ppdtext::localizeRecord(*record, text, u"de")) {
    std::fprintf(stderr, "ppdtext_growth: a file was refused\n");
    std::exit(EXIT_FAILURE);
  }
  best.show = std::min(best.show, now() - start);
  start = now();
  kelm::ppdtext::KelmPPD::ppdMarkDefaults_(record.get());
  best.mark = std::min(best.mark, now() - start);
}

Times timesOf(const Shape& shape, int size) {
  const auto text =
      kelm::ppdtext::toUtf16("*PPD-Adobe: \"4.3\"\n*cupsLanguages: \"en de\"\n" + shape.text(size));
  Times best;
  for (int run = 0; run < kRuns; ++run) measure(text.value(), best);
  std::printf("%-24s %8d %8zu %8.1f %8.1f %8.1f %8.2f\n", shape.name, size, text->size() / 1000,
              best.read, best.show, best.mark, best.all() * 1000 / size);
  return best;
}

}  // namespace

int main() {
  int status = EXIT_SUCCESS;
  std::printf("%-24s %8s %8s %8s %8s %8s %8s\n", "shape", "size", "kB", "read ms", "show ms",
              "mark ms", "us/unit");
  for (const Shape& shape : kShapes) {
    const double once = timesOf(shape, shape.size).all();
    timesOf(shape, 2 * shape.size);
    const double fourTimes = timesOf(shape, 4 * shape.size).all();
    if (fourTimes > kMostGrowth * once + kNoise) {
      std::printf("^ grows faster than the file\n");
      status = EXIT_FAILURE;
    }
  }
  return status;
}
