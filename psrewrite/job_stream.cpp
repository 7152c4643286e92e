// The job's PostScript on its way from the input to the printer.
// SPDX-License-Identifier: Apache-2.0
#include "psrewrite/job_stream.hpp"

#include <algorithm>
#include <cstring>

#include "job/diagnostics.hpp"

namespace kelm::psrewrite {

void LineBuffer::overwrite(std::string_view text) {
  std::copy(text.begin(), text.end(), bytes_.begin());
  terminate(text.size());
}

bool LineBuffer::contains(const char* needle) const {
  return std::strstr(bytes_.data(), needle) != nullptr;
}

JobStream::JobStream(base::ByteSource& input, std::FILE* output, base::DescriptorSink* direct)
    : input_(input),
      output_(output),
      direct_(direct),
      block_(static_cast<char*>(::operator new[](kBlockSize, kPageAlignment))) {}

std::span<const char> JobStream::window() {
  if (window_.empty() && !ended_) {
    const std::size_t count = input_.read({block_.get(), kBlockSize});
    window_ = {block_.get(), count};
    ended_ = count == 0;
  }
  return window_;
}

void JobStream::consume(std::size_t count) { window_ = window_.subspan(count); }

void JobStream::pass(std::size_t count) {
  const std::string_view run(window_.data(), count);
  job::LogFile2Run(run);
  write(run);
  consume(count);
}

int JobStream::get() {
  if (window().empty()) return EOF;
  const auto byte = static_cast<unsigned char>(window_.front());
  consume(1);
  return byte;
}

std::size_t JobStream::takeLine(char* buffer, std::size_t limit) {
  std::size_t stored = 0;
  while (stored < limit && !window().empty()) {
    const std::size_t room = std::min(limit - stored, window_.size());
    const void* end = std::memchr(window_.data(), '\n', room);
    const std::size_t count =
        end == nullptr
            ? room
            : static_cast<std::size_t>(static_cast<const char*>(end) - window_.data()) + 1;
    std::memcpy(buffer + stored, window_.data(), count);
    stored += count;
    consume(count);
    if (end != nullptr) break;
  }
  return stored;
}

char* JobStream::gets(char* buffer, std::size_t size) {
  const std::size_t stored = takeLine(buffer, size - 1);
  if (stored == 0) return nullptr;
  buffer[stored] = '\0';
  return buffer;
}

void JobStream::write(std::string_view bytes) {
  writeUnlogged(bytes);
  job::LogFile3Run(bytes);
}

// A long run is written directly to the descriptor: the stream's buffer would only copy it. It
// begins at a page boundary, because the kernel copies whole pages to a pipe twice as fast.
void JobStream::writeUnlogged(std::string_view bytes) {
  if (bytes.size() >= kLongRun && direct_ != nullptr) {
    const std::size_t head = -reinterpret_cast<std::uintptr_t>(bytes.data()) % kPageSize;
    std::fwrite(bytes.data(), 1, head, output_);
    std::fflush(output_);
    direct_->write(bytes.substr(head));
  } else {
    std::fwrite(bytes.data(), 1, bytes.size(), output_);
  }
}

std::int32_t readLine(JobStream& stream, char* buffer, std::size_t limit) {
  const std::size_t stored = stream.takeLine(buffer, limit);
  job::LogFile2Run({buffer, stored});
  return static_cast<std::int32_t>(stored);
}

char* fgetline(JobStream& stream, char* buffer, std::size_t size) {
  const std::int32_t stored = readLine(stream, buffer, size - 1);
  if (stored == 0) return nullptr;
  buffer[stored] = '\0';
  buffer[std::strcspn(buffer, "\n")] = '\0';
  return buffer;
}

}  // namespace kelm::psrewrite
