// Locks that keep two processes from changing the stored facts of one queue at a time.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/queue_locks.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kelm::ctl {
namespace {

constexpr char kFile[] = "/run/lock/kelmctl.lock";
constexpr mode_t kForAllUsers = 0666;

// Uses O_CREAT only when the file is missing: in that directory, the kernel does not let root open
// another user's file with it (fs.protected_regular).
int openLockFile() {
  const int existing = open(kFile, O_RDWR | O_NOFOLLOW | O_CLOEXEC);
  if (existing >= 0 || errno != ENOENT) return existing;
  const int file = open(kFile, O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_CREAT | O_EXCL, kForAllUsers);
  if (file < 0 && errno == EEXIST) return open(kFile, O_RDWR | O_NOFOLLOW | O_CLOEXEC);
  if (file >= 0) fchmod(file, kForAllUsers);
  return file;
}

// This computer's print server has several names, but each of its queues has only one lock.
std::string_view serverKey(std::string_view server) {
  const auto begins = [&](std::string_view start) { return server.starts_with(start); };
  const bool isLocal = server.empty() || begins("/") || begins("localhost") || begins("127.") ||
                       begins("[::1]") || begins("::1");
  return isLocal ? std::string_view() : server;
}

// FNV-1a, the same in every process, cut to a file offset.
off_t offsetOf(const std::string& server, const std::string& queue) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char c : std::string(serverKey(server)) + '\n' + queue) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  }
  return static_cast<off_t>(hash >> 2);
}

struct flock lockFor(short type, off_t offset) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  lock.l_start = offset;
  lock.l_len = 1;
  return lock;
}

}  // namespace

QueueLocks::QueueLocks() : file_(openLockFile()) {
  if (file_ >= 0) return;
  problem_ = "the lock file ";
  problem_.append(kFile).append(" cannot be opened: ").append(std::strerror(errno));
  problem_ += "; without it two updates of one queue could mix";
}

QueueLocks::~QueueLocks() {
  if (file_ >= 0) close(file_);
}

pid_t QueueLocks::tryLock(const std::string& server, const std::string& queue) {
  constexpr int kAttempts = 10;  // the holder may end between the two calls below
  const off_t offset = offsetOf(server, queue);
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    struct flock lock = lockFor(F_WRLCK, offset);
    if (fcntl(file_, F_SETLK, &lock) == 0) {
      ++held_[offset];
      return 0;
    }
    struct flock holder = lockFor(F_WRLCK, offset);
    if (fcntl(file_, F_GETLK, &holder) != 0) return -1;
    if (holder.l_type != F_UNLCK) return holder.l_pid;
  }
  return -1;
}

void QueueLocks::unlock(const std::string& server, const std::string& queue) {
  const auto held = held_.find(offsetOf(server, queue));
  if (held == held_.end() || --held->second > 0) return;
  struct flock lock = lockFor(F_UNLCK, held->first);
  fcntl(file_, F_SETLK, &lock);
  held_.erase(held);
}

}  // namespace kelm::ctl
