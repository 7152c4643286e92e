// make bench: throughput, start-up and memory of kelmfilter, compared with cat, pstops and a
// program that does nothing, and how fast kelmctl explain reads a printer stream.
// SPDX-License-Identifier: Apache-2.0

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/bench/jobs.hpp"
#include "tests/bench/measure.hpp"
#include "tests/support/job_shapes.hpp"

namespace {

using kelm::bench::Command;
using kelm::bench::secondsIntoPipe;
using kelm::bench::secondsToExit;

constexpr std::size_t kMegabyte = 1000 * 1000;
constexpr std::size_t kJobBytes = 256 * kMegabyte;
constexpr std::size_t kMemoryBlock =
    kMegabyte;  // small, because a child starts with its parent's peak
constexpr int kLongBlocks = 1000;
constexpr int kLongRuns = 3;
constexpr int kThroughputRuns = 9;
constexpr int kStartUpRuns = 301;
constexpr int kGrowthRuns = 5;

const Command kCat{"/bin/cat"};
const Command kFilter{KELM_FILTER, "1", "user", "title", "1", ""};
const Command kExplain{KELM_CTL, "explain", "--stream", "-"};
const Command kBare{KELM_BARE};
const Command kBareWithPpd{KELM_BARE, KELM_PPD};

std::string writeJob(const char* name, const std::string& content) {
  std::filesystem::create_directories(KELM_BENCH_DIRECTORY);
  const std::string path = std::string(KELM_BENCH_DIRECTORY) + "/" + name;
  std::ofstream(path, std::ios::binary) << content;
  return path;
}

void throughput(const char* name, const std::string& content) {
  const std::string file = writeJob(name, content);
  const Command pstops{"/usr/lib/cups/filter/pstops", "1", "user", "title", "1", "", file};
  const auto times = kelm::bench::mediansInTurns(
      {[&] { return secondsIntoPipe(kCat, file); }, [&] { return secondsIntoPipe(kFilter, file); },
       [&] { return secondsIntoPipe(pstops, file); }},
      kThroughputRuns);
  const auto rate = [&](double seconds) {
    return static_cast<double>(content.size()) / kMegabyte / seconds;
  };
  std::printf("%-12s %8.0f %12.0f %8.0f %14.2f %14.1f\n", name, rate(times[0]), rate(times[1]),
              rate(times[2]), times[0] / times[1], times[2] / times[1]);
  std::filesystem::remove(file);
}

// The file with the filter's output for a job.
std::string printed(const std::string& job) {
  const std::string stream = job + ".prn";
  const Command print{"/bin/sh",   "-c", "exec \"$0\" 1 user title 1 \"\" \"$1\" >\"$2\"",
                      KELM_FILTER, job,  stream};
  secondsToExit(print, job);
  return stream;
}

void explain(const char* name, const std::string& content) {
  const std::string job = writeJob(name, content);
  const std::string stream = printed(job);
  const auto size = static_cast<double>(std::filesystem::file_size(stream));
  const auto times = kelm::bench::mediansInTurns({[&] { return secondsIntoPipe(kCat, stream); },
                                                  [&] { return secondsToExit(kExplain, stream); }},
                                                 kThroughputRuns);
  std::printf("%-12s %8.0f %12.0f %14.2f\n", name, size / kMegabyte / times[0],
              size / kMegabyte / times[1], times[0] / times[1]);
  std::filesystem::remove(job);
  std::filesystem::remove(stream);
}

// A stream of 1 GB comes through a pipe.
void explainLong() {
  const std::string job = writeJob("front", "%!PS-Adobe-3.0\n");
  const std::string stream = printed(job);
  std::ifstream file(stream, std::ios::binary);
  const std::string front{std::istreambuf_iterator<char>(file), {}};
  const std::string block = kelm::bench::lineArt(kMemoryBlock).substr(0, kMemoryBlock);
  const auto times = kelm::bench::mediansInTurns(
      {[&] { return kelm::bench::fed(kCat, front, block, kLongBlocks).seconds; },
       [&] { return kelm::bench::fed(kExplain, front, block, kLongBlocks).seconds; }},
      kLongRuns);
  const double size = static_cast<double>(block.size()) * kLongBlocks / kMegabyte;
  std::printf("%-12s %8.0f %12.0f %14.2f\n", "line-art 1 GB", size / times[0], size / times[1],
              times[0] / times[1]);
  for (const int blocks : {16, kLongBlocks}) {
    const long peak = kelm::bench::fed(kExplain, front, block, blocks).peakKilobytes;
    std::printf("peak memory for %d MB %10.1f MB\n", blocks,
                static_cast<double>(peak) * 1024 / kMegabyte);
  }
  std::filesystem::remove(job);
  std::filesystem::remove(stream);
}

void startUp() {
  const std::string file = writeJob("small", kelm::bench::lineArt(1000).substr(0, 1000));
  const auto withPpd = [&](const char* ppd) {
    ppd != nullptr ? setenv("PPD", ppd, 1) : unsetenv("PPD");
    return secondsToExit(kFilter, file);
  };
  const auto times = kelm::bench::mediansInTurns(
      {[&] { return secondsToExit(kBare, file); }, [&] { return withPpd(nullptr); },
       [&] { return secondsToExit(kBareWithPpd, file); }, [&] { return withPpd(KELM_PPD); }},
      kStartUpRuns);
  const auto row = [&](const char* what, double seconds) {
    std::printf("%-36s %8.2f ms %8.2f\n", what, seconds * 1000, seconds / times[0]);
  };
  std::printf("\nstart to exit, 1 KB job                median    ratio\n");
  row("bare program (links libcups, exits)", times[0]);
  row("kelmfilter", times[1]);
  row("libcups alone with the queue's PPD", times[2]);
  row("kelmfilter with the queue's PPD", times[3]);
}

// How the time for a job grows, shape by shape.
void growth() {
  std::printf("\nstart to exit            %8s %8s %8s\n", "size", "ms", "us/unit");
  for (const kelm::tests::JobShape& shape : kelm::tests::jobShapes()) {
    for (const int times : {1, 2, 4}) {
      const int size = times * shape.size;
      const std::string file = writeJob("growing", shape.postScript(size));
      const Command command{KELM_FILTER, "1", "user", "title", "1", shape.options(size)};
      const double seconds = kelm::bench::mediansInTurns(
          {[&] { return secondsToExit(command, file); }}, kGrowthRuns)[0];
      std::printf("%-24s %8d %8.1f %8.2f\n", shape.name, size, seconds * 1e3, seconds * 1e6 / size);
      std::filesystem::remove(file);
    }
  }
}

void memory() {
  const std::string block = kelm::bench::lineArt(kMemoryBlock).substr(0, kMemoryBlock);
  setenv("PPD", KELM_PPD, 1);
  std::printf("peak memory of kelmfilter with the queue's PPD\n");
  for (const int times : {16, 1024}) {
    const long peak = kelm::bench::fed(kFilter, "", block, times).peakKilobytes;
    std::printf("%6zu MB job %10.1f MB\n",
                block.size() * static_cast<std::size_t>(times) / kMegabyte,
                static_cast<double>(peak) * 1024 / kMegabyte);
  }
}

}  // namespace

int main() {
  memory();
  setenv("PPD", KELM_PPD, 1);
  std::printf("\nthroughput into a pipe, MB/s, medians of %d runs in turns, jobs of 256 MB\n",
              kThroughputRuns);
  std::printf("%-12s %8s %12s %8s %14s %14s\n", "", "cat", "kelmfilter", "pstops", "filter/cat",
              "filter/pstops");
  throughput("line-art", kelm::bench::lineArt(kJobBytes));
  throughput("binary", kelm::bench::binaryImage(kJobBytes));
  std::printf("\nkelmctl explain --stream, MB/s, medians of %d runs in turns, streams of 256 MB\n",
              kThroughputRuns);
  std::printf("%-12s %8s %12s %14s\n", "", "cat", "explain", "explain/cat");
  explain("line-art", kelm::bench::lineArt(kJobBytes));
  explain("binary", kelm::bench::binaryImage(kJobBytes));
  explainLong();
  startUp();
  growth();
  return 0;
}
