// The simplest possible copy loop.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/reference_loop.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "job/custom_paper.hpp"
#include "psrewrite/features.hpp"
#include "psrewrite/line_rewriters.hpp"
#include "psrewrite/orientation.hpp"
#include "psrewrite/settled_sections.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::tests {
namespace {

using psrewrite::JobStream;
using psrewrite::LineBuffer;

// The rest of a line, one character at a time; zero-filled after it.
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

// Plain jobs' text stamps, tray repeat and red balance: their lines are in no diagnostic file.
bool isUnlogged(std::int32_t code, const job::PrintJobData& job) {
  constexpr std::int32_t kCodes[] = {12, 13, 14, 24, 25, 26, 27, 211, 317};
  return !job.isPrintPDE && std::ranges::find(kCodes, code) != std::end(kCodes);
}

class CountingSource final : public base::ByteSource {
 public:
  explicit CountingSource(std::string_view bytes) : source_(bytes) {}
  std::size_t read(std::span<char> room) override {
    const std::size_t count = source_.read(room);
    given_ += count;
    return count;
  }
  std::size_t given() const { return given_; }

 private:
  MemorySource source_;
  std::size_t given_ = 0;
};

// A text without its zero bytes and without the pieces that were left out.
class Log {
 public:
  explicit Log(std::string_view text) : text_(text) {}
  void skipTo(std::size_t start, std::size_t end) {
    kept_.append(text_.substr(at_, start - at_));
    at_ = end;
  }
  std::string text() {
    skipTo(text_.size(), text_.size());
    std::erase(kept_, '\0');
    return kept_;
  }

 private:
  std::string_view text_;
  std::string kept_;
  std::size_t at_ = 0;
};

using Pieces = std::vector<std::pair<std::size_t, std::size_t>>;

std::string without(const Pieces& pieces, std::string_view text) {
  Log log(text);
  for (const auto& [start, end] : pieces) log.skipTo(start, end);
  return log.text();
}

class ReferenceLoop {
 public:
  ReferenceLoop(std::string_view input, job::PrintJobData& job)
      : input_(input), source_(input), job_(job) {}

  ReferenceJob run() {
    for (int character = 0; (character = stream_.get()) != EOF;) {
      if (character == '%') {
        copyLine();
      } else {
        std::fputc(character, stream_.output());
      }
    }
    return {output_.text(), without(unloggedInput_, input_),
            without(unloggedOutput_, output_.text())};
  }

 private:
  void copyLine();
  void writeSettled(const job::SectionOverride& section);
  void rewrite(std::int32_t code);
  std::size_t consumed() {
    const std::size_t waiting = stream_.window().size();
    return source_.given() - waiting;
  }

  std::string_view input_;
  CountingSource source_;
  MemoryOutput output_;
  JobStream stream_{source_, output_.stream()};
  job::PrintJobData& job_;
  LineBuffer line_;
  Pieces unloggedInput_;
  Pieces unloggedOutput_;
};

void ReferenceLoop::copyLine() {
  int count = readRest(stream_, line_);
  if (psrewrite::asksForCopies(line_, job_)) return psrewrite::dropCopies(stream_, line_);
  std::fputc('%', stream_.output());
  if (count < 1) return;
  if (const auto* section = psrewrite::sectionOverride(line_, job_)) return writeSettled(*section);
  const int turned = job::customSizeFlg ? psrewrite::replaceCustomOrientation(
                                              line_, job::widthLength <= job::heighLength)
                                        : psrewrite::replaceOrientation(line_, &job_);
  if (turned >= 1) count = turned;
  if (job_.keepOutputFace == 0 && std::strstr(line_.text(), "QVOutputFace FaceUp") != nullptr) {
    writeWithoutLast(stream_, line_, count);
    writeWithoutLast(stream_, line_, readRest(stream_, line_));
    count = readRest(stream_, line_);
  }
  for (int i = 0; i < count; ++i) std::fputc(line_.data()[i], stream_.output());
  line_.data()[count < 4096 ? count : 4095] = '\0';
  rewrite(psrewrite::getFeature(line_.text()));
}

void ReferenceLoop::writeSettled(const job::SectionOverride& section) {
  const std::string opening = "%BeginFeature: *" + section.keyword + " " + section.choice + "\n";
  std::fwrite(opening.data(), 1, opening.size(), stream_.output());
  LineBuffer next;
  if (psrewrite::writeOverride(stream_, next, section)) return;
  line_.clear();
  line_.overwrite(opening);
  rewrite(psrewrite::getFeature(line_.text()));
}

void ReferenceLoop::rewrite(std::int32_t code) {
  const auto writer = psrewrite::featureWriter(code);
  if (!writer) return;
  if (!isUnlogged(code, job_)) {
    writer(stream_, line_, job_);
    return;
  }
  const std::size_t read = consumed();
  const std::size_t written = output_.text().size();
  writer(stream_, line_, job_);
  unloggedInput_.emplace_back(read, consumed());
  unloggedOutput_.emplace_back(written, output_.text().size());
}

}  // namespace

ReferenceJob referenceJob(std::string_view input, job::PrintJobData& job) {
  return ReferenceLoop(input, job).run();
}

void settle(job::PrintJobData& job) {
  constexpr std::string_view kSettle = "settle-";
  for (const cups_option_t& option : job::jobOptions(&job)) {
    std::string_view keyword = option.name;
    if (!keyword.starts_with(kSettle)) continue;
    keyword.remove_prefix(kSettle.size());
    if (keyword == "copies") {
      job.copiesOfHeader = std::atoi(option.value);
    } else if (!keyword.empty() && keyword.size() < PPD_MAX_NAME) {
      job.overrides.push_back({std::string(keyword), "Settled", option.value});
    }
  }
}

std::string referenceCopy(std::string_view input, job::PrintJobData& job) {
  return referenceJob(input, job).output;
}

}  // namespace kelm::tests
