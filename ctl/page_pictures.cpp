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
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string_view>
#include <thread>

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kLimit = 20s;  // for all pages
constexpr auto kTurn = 10ms;
constexpr rlim_t kProcessorSeconds = 20;
constexpr rlim_t kMostMemory = rlim_t{1} << 30U;
constexpr rlim_t kLargestPicture = rlim_t{1} << 20U;
constexpr std::size_t kLongestHeader = std::size_t{1} << 20U;
constexpr std::string_view kEnter = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";

// The type of `resource` is not the same on all systems.
void limit(auto resource, rlim_t most) {
  const rlimit both{most, most};
  setrlimit(resource, &both);
}

// Between fork and exec: only calls that are safe there.
[[noreturn]] void becomePainter(int input, const char* directory) {
  const int null = open("/dev/null", O_RDWR);
  dup2(input, STDIN_FILENO);
  dup2(null, STDOUT_FILENO);
  dup2(null, STDERR_FILENO);
  limit(RLIMIT_CPU, kProcessorSeconds);
  limit(RLIMIT_AS, kMostMemory);
  limit(RLIMIT_FSIZE, kLargestPicture);
  limit(RLIMIT_CORE, 0);
  if (chdir(directory) == 0) {
    execlp("gs", "gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=png16m", "-r40",
           "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4", "-dFirstPage=1", "-dLastPage=4",
           "-sOutputFile=%d.png", "-_", nullptr);
  }
  _exit(127);
}

}  // namespace

PagePictures::PagePictures() : end_(Clock::now() + kLimit) {
  const char* temporary = std::getenv("TMPDIR");
  std::string name = std::string(temporary == nullptr ? "/tmp" : temporary) + "/kelmctl.XXXXXX";
  if (mkdtemp(name.data()) == nullptr) return;
  directory_ = name;
  start();
}

PagePictures::~PagePictures() {
  stopSending();
  end_ = Clock::now();
  waitForEnd();
  if (directory_.empty()) return;
  for (int page = 1; page <= kMostPages; ++page) unlink(pathOf(page).c_str());
  rmdir(directory_.c_str());
}

void PagePictures::start() {
  int pair[2];
  if (socketpair(AF_UNIX, SOCK_STREAM, 0, pair) != 0) return;
  for (const int end : pair) fcntl(end, F_SETFD, FD_CLOEXEC);
  painter_ = fork();
  if (painter_ == 0) becomePainter(pair[1], directory_.c_str());
  close(pair[1]);
  socket_ = pair[0];
  if (painter_ < 0) stopSending();
}

std::string PagePictures::pathOf(int page) const {
  return directory_ + "/" + std::to_string(page) + ".png";
}

bool PagePictures::isPainted(int page) const { return access(pathOf(page).c_str(), F_OK) == 0; }

void PagePictures::feed(std::span<const char> bytes) {
  if (socket_ < 0) return;
  const std::string_view text(bytes.data(), bytes.size());
  if (afterHeader_) return send(text);
  head_ += text;
  if (head_.starts_with('\x1B') || head_.starts_with('@')) {
    const std::size_t enter = head_.find(kEnter);
    if (enter == std::string::npos && head_.size() < kLongestHeader) return;
    if (enter != std::string::npos) head_.erase(0, enter + kEnter.size());
  }
  afterHeader_ = true;
  send(head_);
  head_.clear();
}

void PagePictures::send(std::string_view bytes) {
  while (!bytes.empty() && socket_ >= 0) {
    // A page's file is made when the whole page has been read.
    if (Clock::now() >= end_ || isPainted(kMostPages)) return stopSending();
    const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
      pollfd room{socket_, POLLOUT, 0};
      poll(&room, 1, 100);
    } else if (errno != EINTR) {
      return stopSending();
    }
  }
}

void PagePictures::stopSending() {
  if (socket_ >= 0) close(socket_);
  socket_ = -1;
}

// Ends Ghostscript when its time is over.
void PagePictures::waitForEnd() {
  if (painter_ <= 0) return;
  while (waitpid(painter_, nullptr, WNOHANG) == 0) {
    if (Clock::now() >= end_) {
      kill(painter_, SIGKILL);
      waitpid(painter_, nullptr, 0);
      break;
    }
    std::this_thread::sleep_for(kTurn);
  }
  painter_ = -1;
}

std::vector<std::string> PagePictures::finish() {
  if (!afterHeader_ && !head_.empty()) send(head_);
  stopSending();
  waitForEnd();
  std::vector<std::string> pictures;
  for (int page = 1; page <= kMostPages; ++page) {
    std::ifstream file(pathOf(page), std::ios::binary);
    std::string picture(std::istreambuf_iterator<char>(file), {});
    // The file of a page that was not finished is not complete.
    if (picture.find("IEND") == std::string::npos) break;
    pictures.push_back(std::move(picture));
  }
  return pictures;
}

}  // namespace kelm::ctl
