// Small pictures of the first pages of a printer stream, made by Ghostscript where it is installed.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/page_pictures.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <iterator>
#include <string_view>
#include <utility>

#include "platform/pipe.hpp"

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;

constexpr auto kTurn = 100ms;
constexpr rlim_t kMostMemory = rlim_t{1} << 30U;
constexpr std::size_t kMostBytes = std::size_t{4} << 20U;  // of all pictures
constexpr std::size_t kLongestHeader = std::size_t{1} << 20U;
constexpr std::string_view kEnter = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";
constexpr std::string_view kSignature = "\x89PNG\r\n\x1A\n";
constexpr std::size_t kChunkFrame = 12;  // length, type and checksum

// The type of `resource` is not the same on all systems.
void limit(auto resource, rlim_t most) {
  const rlimit both{most, most};
  setrlimit(resource, &both);
}

// Between fork and exec: only calls that are safe there. -dSAFER lets PostScript read, write and
// remove all files in the directory for temporary files. /dev/null is none, so no file can be made
// or found there. The alarm outlives exec; it ends Ghostscript also while that waits for the
// stream.
[[noreturn]] void becomePainter(int input, int output, unsigned seconds) {
  const int null = open("/dev/null", O_RDWR);
  dup2(input, STDIN_FILENO);
  dup2(output, STDOUT_FILENO);
  dup2(null, STDERR_FILENO);
  limit(RLIMIT_CPU, seconds);
  limit(RLIMIT_AS, kMostMemory);
  limit(RLIMIT_FSIZE, 0);
  limit(RLIMIT_CORE, 0);
  // A library that cannot write its cache goes on without.
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_DFL);
  std::signal(SIGALRM, SIG_DFL);
  alarm(seconds);
  if (chdir("/") == 0) {
    execlp("env", "env", "TMPDIR=/dev/null", "TEMP=/dev/null", "gs", "-q", "-dSAFER", "-dBATCH",
           "-dNOPAUSE", "-sDEVICE=png16m", "-r40", "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4",
           "-dFirstPage=1", "-dLastPage=4", "-sBandListStorage=memory", "-sstdout=%stderr",
           "-sOutputFile=%stdout", "-_", nullptr);
  }
  _exit(127);
}

std::size_t bigEndian(std::string_view bytes) {
  std::size_t number = 0;
  for (const char byte : bytes.substr(0, 4))
    number = number << 8U | static_cast<unsigned char>(byte);
  return number;
}

// The length of the PNG file at the front of `bytes`; 0: it is not complete.
std::size_t lengthOfPicture(std::string_view bytes) {
  if (!bytes.starts_with(kSignature)) return 0;
  std::size_t at = kSignature.size();
  while (at + kChunkFrame <= bytes.size()) {
    const bool isLast = bytes.substr(at + 4, 4) == "IEND";
    at += kChunkFrame + bigEndian(bytes.substr(at));
    if (isLast) return at <= bytes.size() ? at : 0;
  }
  return 0;
}

}  // namespace

PagePictures::~PagePictures() { stopPainting(); }

void PagePictures::start() {
  int input[2];
  int output[2];
  if (socketpair(AF_UNIX, SOCK_STREAM, 0, input) != 0) return;
  for (const int end : input) fcntl(end, F_SETFD, FD_CLOEXEC);
  socket_ = input[0];
  if (platform::openPipe(output)) {
    painter_ = fork();
    if (painter_ == 0) becomePainter(input[1], output[1], seconds_);
    close(output[1]);
    painted_ = output[0];
  }
  close(input[1]);
  if (painter_ < 0) stopPainting();
}

void PagePictures::feed(std::span<const char> bytes) {
  if (bytes.empty()) return;
  const std::string_view text(bytes.data(), bytes.size());
  if (afterHeader_) return send(text);
  head_ += text;
  if (head_.starts_with('\x1B') || head_.starts_with('@')) {
    const std::size_t enter = head_.find(kEnter);
    if (enter == std::string::npos && head_.size() < kLongestHeader) return;
    if (enter != std::string::npos) head_.erase(0, enter + kEnter.size());
  }
  sendHead();
}

// Ghostscript starts only now: a stream that begins late takes none of its time.
void PagePictures::sendHead() {
  afterHeader_ = true;
  start();
  send(head_);
  head_.clear();
}

void PagePictures::send(std::string_view bytes) {
  while (!bytes.empty() && socket_ >= 0) {
    wait(0ms);
    if (socket_ < 0) return;
    const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
      wait(kTurn);
    } else if (errno != EINTR) {
      stopSending();
    }
  }
}

void PagePictures::stopSending() {
  if (socket_ >= 0) close(socket_);
  socket_ = -1;
}

// Until Ghostscript takes or gives something, for at most `most`.
void PagePictures::wait(std::chrono::milliseconds most) {
  pollfd ends[] = {{painted_, POLLIN, 0}, {socket_, POLLOUT, 0}};
  poll(ends, std::size(ends), static_cast<int>(most.count()));
  if (ends[0].revents != 0) receive();
}

void PagePictures::receive() {
  char bytes[65536];
  const ssize_t count = read(painted_, bytes, sizeof bytes);
  if (count < 0 && errno == EINTR) return;
  if (count <= 0) return stopPainting();
  received_.append(bytes, static_cast<std::size_t>(count));
  count_ += static_cast<std::size_t>(count);
  while (const std::size_t length = lengthOfPicture(received_)) {
    pictures_.push_back(received_.substr(0, length));
    received_.erase(0, length);
  }
  if (pictures_.size() >= kMostPages || count_ >= kMostBytes) stopPainting();
}

void PagePictures::stopPainting() {
  stopSending();
  if (painted_ >= 0) close(painted_);
  painted_ = -1;
  if (painter_ <= 0) return;
  kill(painter_, SIGKILL);
  waitpid(painter_, nullptr, 0);
  painter_ = -1;
}

std::vector<std::string> PagePictures::finish() {
  if (!afterHeader_ && !head_.empty()) sendHead();
  stopSending();
  while (painted_ >= 0) wait(kTurn);
  if (pictures_.size() > kMostPages) pictures_.resize(kMostPages);
  return std::move(pictures_);
}

}  // namespace kelm::ctl
