// Small pictures of the first pages of a printer stream, made by Ghostscript where it is installed.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/byte_source.hpp"

namespace kelm::ctl {

// The stream may hold anything: Ghostscript runs with -dSAFER, with limits on time and memory, and
// cannot write to a file. The pictures come through a pipe, at most 4 MB of them. Nothing here
// fails: without Ghostscript, or when it gives up, there are fewer pictures or none.
class PagePictures {
 public:
  static constexpr std::size_t kMostPages = 4;

  // Ghostscript ends `seconds` after the first byte of the PostScript. Pages that come later have
  // no picture.
  explicit PagePictures(unsigned seconds = 20) : seconds_(seconds) {}
  ~PagePictures();
  PagePictures(const PagePictures&) = delete;
  PagePictures& operator=(const PagePictures&) = delete;

  // The next bytes of the stream, from its first one on. The header is left out.
  void feed(std::span<const char> bytes);

  // After the stream: the pictures, as PNG files.
  std::vector<std::string> finish();

 private:
  void start();
  void sendHead();
  void send(std::string_view bytes);
  void stopSending();
  void wait(std::chrono::milliseconds most);
  void receive();
  void stopPainting();

  unsigned seconds_;
  pid_t painter_ = -1;
  int socket_ = -1;   // Ghostscript's standard input
  int painted_ = -1;  // its standard output
  std::string head_;  // of the stream, until its PostScript begins
  bool afterHeader_ = false;
  std::string received_;   // of the next picture
  std::size_t count_ = 0;  // of all bytes received
  std::vector<std::string> pictures_;
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
