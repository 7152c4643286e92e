// The copy loop as plainly as it can be written.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/reference_loop.hpp"

#include <cstring>

#include "job/custom_paper.hpp"
#include "psrewrite/features.hpp"
#include "psrewrite/line_rewriters.hpp"
#include "psrewrite/orientation.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::tests {
namespace {

using psrewrite::JobStream;
using psrewrite::LineBuffer;

// The rest of a line, one character at a time; zero-filled behind.
int readRest(JobStream& stream, LineBuffer& line) {
  line.clear();
  int count = 0;
  while (count < 4096) {
    const int character = stream.get();
    if (character == EOF) break;
    line.data()[count++] = static_cast<char>(character);
    if (character == '\n') break;
  }
  return count;
}

void writeWithoutLast(JobStream& stream, LineBuffer& line, int count) {
  if (count > 0) line.data()[count - 1] = '\0';
  psrewrite::outputFeatureByCustomSizeValueTitle(stream, line.text(), "FaceUp", "FaceDown");
}

void copyLine(JobStream& stream, LineBuffer& line, job::PrintJobData& job) {
  int count = readRest(stream, line);
  if (count < 1) return;
  const int turned = job::customSizeFlg ? psrewrite::replaceCustomOrientation(
                                              line, job::widthLength <= job::heighLength)
                                        : psrewrite::replaceOrientation(line, &job);
  if (turned >= 1) count = turned;
  if (job.keepOutputFace == 0 && std::strstr(line.text(), "QVOutputFace FaceUp") != nullptr) {
    writeWithoutLast(stream, line, count);
    writeWithoutLast(stream, line, readRest(stream, line));
    count = readRest(stream, line);
  }
  for (int i = 0; i < count; ++i) std::fputc(line.data()[i], stream.output());
  line.data()[count < 4096 ? count : 4095] = '\0';
  const auto writer = psrewrite::featureWriter(psrewrite::getFeature(line.text()));
  if (writer) writer(stream, line, job);
}

}  // namespace

std::string referenceCopy(std::string_view input, job::PrintJobData& job) {
  MemorySource source(input);
  MemoryOutput output;
  JobStream stream(source, output.stream());
  LineBuffer line;
  int character = 0;
  while ((character = stream.get()) != EOF) {
    std::fputc(character, stream.output());
    if (character == '%') copyLine(stream, line, job);
  }
  return output.text();
}

}  // namespace kelm::tests
