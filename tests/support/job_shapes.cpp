// Jobs of many shapes and of any size.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/job_shapes.hpp"

namespace kelm::tests {
namespace {

std::string none(int /*n*/) { return "PrintPDE"; }

// The name of option `i`, short: an argument of a program has 128 KB at most.
std::string name(int i) {
  constexpr int kLetters = 26;
  std::string text = "x";
  for (int digits = 0; digits < 4; ++digits, i /= kLetters) {
    text += static_cast<char>('a' + i % kLetters);
  }
  return text;
}

std::string options(int n) {
  std::string text = "PrintPDE";
  for (int i = 0; i < n; ++i) text += " " + name(i);
  return text;
}

std::string page(int /*n*/) { return "%!PS-Adobe-3.0\nshowpage\n"; }

std::string lines(int n) {
  std::string text = "%!PS-Adobe-3.0\n";
  for (int i = 0; i < n; ++i) text += "100 200 moveto 300 400 lineto stroke % a line\n";
  return text;
}

// Sections of a feature for which the job has no value: each search goes through all options.
std::string sections(int n) {
  std::string text = "%!PS-Adobe-3.0\n";
  for (int i = 0; i < n; ++i) {
    text += "%%BeginFeature: *QVPageNumStartNum 1\n(1) set\n%%EndFeature\n";
  }
  return text;
}

std::string fiveSectionsEach(int n) { return sections(5 * n); }

constexpr JobShape kJobShapes[] = {
    {"lines", 500000, none, lines},
    {"sections", 25000, none, sections},
    {"options", 5000, options, page},
    {"options, 5 sections each", 5000, options, fiveSectionsEach},
};

}  // namespace

std::span<const JobShape> jobShapes() { return kJobShapes; }

}  // namespace kelm::tests
