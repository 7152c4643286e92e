// Locks that keep two processes from changing the stored facts of one queue at a time.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/queue_locks.hpp"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

namespace kelm::ctl {
namespace {

constexpr mode_t kForAllUsers = 0666;

// Uses O_CREAT only when the file is missing: in that directory, the kernel does not let root open
// another user's file with it (fs.protected_regular).
int openLockFile(const char* path) {
  const int existing = open(path, O_RDWR | O_NOFOLLOW | O_CLOEXEC);
  if (existing >= 0 || errno != ENOENT) return existing;
  const int file = open(path, O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_CREAT | O_EXCL, kForAllUsers);
  if (file < 0 && errno == EEXIST) return open(path, O_RDWR | O_NOFOLLOW | O_CLOEXEC);
  if (file >= 0) fchmod(file, kForAllUsers);
  return file;
}

// All users can write into the directory, so another one may have put anything there.
std::string ownerAdvice(const std::string& path, int errorNumber) {
  if (errorNumber != EACCES && errorNumber != ELOOP && errorNumber != EISDIR) return {};
  struct stat found {};
  if (lstat(path.c_str(), &found) != 0) return {};
  const struct passwd* user = getpwuid(found.st_uid);
  return "; it belongs to " +
         (user != nullptr ? "the user " + std::string(user->pw_name)
                          : "user number " + std::to_string(found.st_uid)) +
         ": remove it";
}

// FNV-1a, the same in every process, cut to a file offset.
off_t offsetOf(const std::string& queue) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char c : queue) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
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

QueueLocks::QueueLocks(const std::string& path) : file_(openLockFile(path.c_str())) {
  if (file_ >= 0) return;
  const int errorNumber = errno;
  problem_ = "the lock file " + path + " cannot be opened: " + std::strerror(errorNumber) +
             ownerAdvice(path, errorNumber) + "; without it two updates of one queue could mix";
}

QueueLocks::~QueueLocks() {
  if (file_ >= 0) close(file_);
}

// The kernel would give this process its own lock a second time.
pid_t QueueLocks::tryLock(const std::string& queue) {
  constexpr int kAttempts = 10;  // the holder may end between the two calls below
  const off_t offset = offsetOf(queue);
  if (held_.count(offset) > 0) return getpid();
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    struct flock lock = lockFor(F_WRLCK, offset);
    if (fcntl(file_, F_SETLK, &lock) == 0) {
      held_.insert(offset);
      return 0;
    }
    struct flock holder = lockFor(F_WRLCK, offset);
    if (fcntl(file_, F_GETLK, &holder) != 0) return -1;
    // The kernel gives no number for a process that this one cannot see.
    if (holder.l_type != F_UNLCK) return holder.l_pid > 0 ? holder.l_pid : -1;
  }
  return -1;
}

void QueueLocks::unlock(const std::string& queue) {
  const off_t offset = offsetOf(queue);
  if (held_.erase(offset) == 0) return;
  struct flock lock = lockFor(F_UNLCK, offset);
  fcntl(file_, F_SETLK, &lock);
}

std::string nameOfHolder(pid_t holder) {
  return holder > 0 ? "process " + std::to_string(holder) : "another process";
}

LockWait::State LockWait::tryLock(QueueLocks& locks, const std::string& queue,
                                  std::chrono::seconds limit, Clock::time_point now) {
  constexpr auto kPause = std::chrono::milliseconds(200);
  if (holder_ != 0 && now < nextTry_) return State::kGoingOn;
  const pid_t found = locks.tryLock(queue);
  if (found == getpid()) return State::kGoingOn;
  const pid_t before = std::exchange(holder_, found);
  if (found == 0) return State::kLocked;
  nextTry_ = now + kPause;
  if (before == 0) {
    end_ = now + limit;
    return State::kBegun;
  }
  return now >= end_ ? State::kTooLong : State::kGoingOn;
}

}  // namespace kelm::ctl
