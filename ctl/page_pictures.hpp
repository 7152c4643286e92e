// Small pictures of the first pages of a printer stream, made by Ghostscript where it is installed.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <chrono>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/byte_source.hpp"

namespace kelm::ctl {

// The stream may hold anything: Ghostscript runs with -dSAFER, in a directory of its own, with
// limits on time, memory and what it writes. Nothing here fails: without Ghostscript, or when it
// gives up, there are fewer pictures or none.
class PagePictures {
 public:
  static constexpr int kMostPages = 4;

  PagePictures();
  ~PagePictures();
  PagePictures(const PagePictures&) = delete;
  PagePictures& operator=(const PagePictures&) = delete;

  // The next bytes of the stream, from its first one on. The header is left out.
  void feed(std::span<const char> bytes);

  // After the stream: the pictures, as PNG files.
  std::vector<std::string> finish();

 private:
  void start();
  void send(std::string_view bytes);
  void stopSending();
  bool isPainted(int page) const;
  std::string pathOf(int page) const;
  void waitForEnd();

  std::string directory_;  // empty when there is none
  pid_t painter_ = -1;
  int socket_ = -1;   // Ghostscript's standard input
  std::string head_;  // of the stream, until its PostScript begins
  bool afterHeader_ = false;
  std::chrono::steady_clock::time_point end_;
};

// A source that shows what is read of it to `pictures`.
class PicturedSource final : public base::ByteSource {
 public:
  PicturedSource(base::ByteSource& source, PagePictures& pictures)
      : source_(source), pictures_(pictures) {}

  std::size_t read(std::span<char> room) override {
    const std::size_t count = source_.read(room);
    pictures_.feed(room.first(count));
    return count;
  }

 private:
  base::ByteSource& source_;
  PagePictures& pictures_;
};

}  // namespace kelm::ctl
