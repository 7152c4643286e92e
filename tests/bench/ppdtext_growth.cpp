// How the time for a PPD grows with its options: reading it as text, showing it in a language, and
// marking its defaults. Prints milliseconds, best of a few runs, and the time per option.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "ppdtext/kelm_ppd.hpp"
#include "ppdtext/localizer.hpp"
#include "ppdtext/model.hpp"
#include "ppdtext/record.hpp"
#include "ppdtext/unicode_text.hpp"

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kRuns = 3;
constexpr int kOptionsPerGroup = 20;
constexpr int kChoices = 6;
constexpr int kSizes[] = {100, 1000, 4000};

std::string choiceLines(const std::string& option) {
  std::string lines;
  for (int i = 0; i < kChoices; ++i) {
    const std::string choice = "Choice" + std::to_string(i);
    lines += "*" + option + " " + choice + "/Shown " + choice + ": \"<</Setting " +
             std::to_string(i) + ">> setpagedevice\"\n";
    lines += "*de." + option + " " + choice + "/Gezeigt " + choice + ": \"\"\n";
  }
  return lines;
}

std::string optionLines(int number) {
  const std::string option = "QVOption" + std::to_string(number);
  return "*OpenUI *" + option + "/Option " + option +
         ": PickOne\n*OrderDependency: " + std::to_string(number) + " AnySetup *" + option +
         "\n*Default" + option + ": Choice0\n" + "*de.Translation " + option + "/Auswahl " +
         option + ": \"\"\n" + choiceLines(option) + "*CloseUI: *" + option + "\n\n";
}

std::u16string fileWith(int options) {
  std::string text = "*PPD-Adobe: \"4.3\"\n*cupsLanguages: \"en de\"\n";
  for (int i = 0; i < options; ++i) {
    const std::string group = "Group" + std::to_string(i / kOptionsPerGroup);
    if (i % kOptionsPerGroup == 0) text += "*OpenGroup: " + group + "/The " + group + "\n";
    text += optionLines(i);
    if ((i + 1) % kOptionsPerGroup == 0) text += "*CloseGroup: " + group + "\n";
  }
  return kelm::ppdtext::toUtf16(text).value();
}

struct Times {
  double read = 1e9;
  double localize = 1e9;
  double mark = 1e9;
};

double since(Clock::time_point start) { return Milliseconds(Clock::now() - start).count(); }

void measure(const std::u16string& text, Times& best) {
  auto start = Clock::now();
  const auto model = kelm::ppdtext::modelOf(text);
  const kelm::ppdtext::Record record(kelm::ppdtext::buildRecord(model.value(), std::calloc));
  best.read = std::min(best.read, since(start));
  start = Clock::now();
  kelm::ppdtext::localizeRecord(*record, text, u"de");
  best.localize = std::min(best.localize, since(start));
  start = Clock::now();
  kelm::ppdtext::KelmPPD::ppdMarkDefaults_(record.get());
  best.mark = std::min(best.mark, since(start));
}

}  // namespace

int main() {
  std::printf("%8s %10s %10s %10s %10s %12s\n", "options", "kilobytes", "read ms", "localise",
              "mark", "us/option");
  for (const int options : kSizes) {
    const std::u16string text = fileWith(options);
    Times best;
    for (int run = 0; run < kRuns; ++run) measure(text, best);
    const double all = best.read + best.localize + best.mark;
    std::printf("%8d %10zu %10.1f %10.1f %10.1f %12.1f\n", options, text.size() / 1000, best.read,
                best.localize, best.mark, all * 1000 / options);
  }
  return 0;
}
