// A job's header as data: the lines that OutputPJL writes, with the row that wrote each.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/recorder.hpp"

#include <cstdio>
#include <cstdlib>

#include "pjl/frame.hpp"

namespace kelm::pjl {
namespace {

constexpr std::string_view kSet = "@PJL SET ";

// The bytes that `write` writes to a stream.
template <class Writer>
std::string written(Writer write) {
  char* data = nullptr;
  std::size_t size = 0;
  std::FILE* const stream = open_memstream(&data, &size);
  if (stream == nullptr) return {};
  write(stream);
  std::fclose(stream);
  std::string text(data, size);
  std::free(data);
  return text;
}

// A line feed ends a line only before the next setting: a value may hold one.
void splitLines(const HeaderStep* step, std::string_view text, std::vector<RecordedLine>& lines) {
  while (!text.empty()) {
    const std::size_t next = text.find(std::string("\n") + std::string(kSet));
    const std::size_t end = next == std::string_view::npos ? text.size() - 1 : next;
    lines.push_back(recordedLine(step, text.substr(0, end)));
    text.remove_prefix(end + 1);
  }
}

}  // namespace

RecordedLine recordedLine(const HeaderStep* step, std::string_view line) {
  const std::size_t equals = line.find('=');
  if (!line.starts_with(kSet) || equals == std::string_view::npos) {
    return {step, "", std::string(line)};
  }
  return {step, std::string(line.substr(kSet.size(), equals - kSet.size())),
          std::string(line.substr(equals + 1))};
}

std::vector<RecordedLine> recordStep(job::PrintJobData& job, const HeaderStep& step) {
  std::vector<RecordedLine> lines;
  splitLines(&step, written([&](std::FILE* stream) { writeStep(stream, job, step); }), lines);
  return lines;
}

std::vector<RecordedLine> recordHeader(job::PrintJobData& job) {
  std::vector<RecordedLine> lines;
  for (const FrameWriter write : frameBeforeVariables()) splitLines(nullptr, written(write), lines);
  forEachStep(job.isPrintPDE, [&](const HeaderStep& step) {
    for (RecordedLine& line : recordStep(job, step)) lines.push_back(std::move(line));
  });
  splitLines(nullptr, written(Output_EnterPostScript), lines);
  return lines;
}

}  // namespace kelm::pjl
