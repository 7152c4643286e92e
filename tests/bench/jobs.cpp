// The jobs that are measured.
// SPDX-License-Identifier: Apache-2.0
#include "tests/bench/jobs.hpp"

#include <cstdint>
#include <cstdio>

namespace kelm::bench {
namespace {

constexpr int kLinesPerPage = 25000;
constexpr std::size_t kImageBytes = std::size_t{2200} * 2200;

// A fast random generator that gives the same numbers everywhere.
class Noise {
 public:
  std::uint64_t next() {
    state_ ^= state_ << 13U;
    state_ ^= state_ >> 7U;
    state_ ^= state_ << 17U;
    return state_;
  }
  // 100.000 to 999.999
  double coordinate() { return 100.0 + static_cast<double>(next() % 900000) / 1000.0; }

 private:
  std::uint64_t state_ = 0x9E3779B97F4A7C15U;
};

void beginPage(std::string& job, int page) {
  const std::string number = std::to_string(page);
  job += "%%Page: " + number + " " + number + "\n%%BeginPageSetup\n%%EndPageSetup\n";
}

}  // namespace

std::string lineArt(std::size_t bytes) {
  std::string job = "%!PS-Adobe-3.0\n%%Pages: (atend)\n%%EndComments\n";
  job.reserve(bytes + (std::size_t{1} << 20U));
  Noise noise;
  for (int page = 1; job.size() < bytes; ++page) {
    beginPage(job, page);
    for (int line = 0; line < kLinesPerPage; ++line) {
      char text[64];
      std::snprintf(text, sizeof text, "%.3f %.3f m %.3f %.3f l s\n", noise.coordinate(),
                    noise.coordinate(), noise.coordinate(), noise.coordinate());
      job += text;
    }
    job += "showpage\n";
  }
  return job + "%%Trailer\n%%EOF\n";
}

std::string binaryImage(std::size_t bytes) {
  std::string job = "%!PS-Adobe-3.0\n%%Pages: (atend)\n%%EndComments\n";
  job.reserve(bytes + 2 * kImageBytes);
  Noise noise;
  for (int page = 1; job.size() < bytes; ++page) {
    beginPage(job, page);
    job += "%%BeginBinary: " + std::to_string(kImageBytes) + "\n";
    for (std::size_t i = 0; i < kImageBytes; i += sizeof(std::uint64_t)) {
      const std::uint64_t word = noise.next();
      job.append(reinterpret_cast<const char*>(&word), sizeof word);
    }
    job += "\n%%EndBinary\nshowpage\n";
  }
  return job + "%%Trailer\n%%EOF\n";
}

}  // namespace kelm::bench
