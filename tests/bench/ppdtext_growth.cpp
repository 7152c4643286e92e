// How the time for a PPD grows with its size, shape by shape: reading it as text, showing it in a
// language, and marking its defaults. Prints milliseconds of processor time, the best of a few
// runs. tests/unit/growth/ checks the growth by counted work.
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
#include "tests/support/ppd_shapes.hpp"

namespace {

constexpr int kRuns = 3;

struct Times {
  double read = 1e9;
  double show = 1e9;
  double mark = 1e9;
  double all() const { return read + show + mark; }
};

double now() { return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// Ends the program if the file cannot be read or shown, because its times would mean nothing.
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

void printTimes(const kelm::tests::PpdShape& shape, int size) {
  const auto text = kelm::ppdtext::toUtf16(kelm::tests::ppdOf(shape, size));
  Times best;
  for (int run = 0; run < kRuns; ++run) measure(text.value(), best);
  std::printf("%-24s %8d %8zu %8.1f %8.1f %8.1f %8.2f\n", shape.name, size, text->size() / 1000,
              best.read, best.show, best.mark, best.all() * 1000 / size);
}

}  // namespace

int main() {
  std::printf("%-24s %8s %8s %8s %8s %8s %8s\n", "shape", "size", "kB", "read ms", "show ms",
              "mark ms", "us/unit");
  for (const kelm::tests::PpdShape& shape : kelm::tests::ppdShapes()) {
    for (const int times : {1, 2, 4}) printTimes(shape, times * shape.size);
  }
  return EXIT_SUCCESS;
}
