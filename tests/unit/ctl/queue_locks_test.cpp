// Locks of queues, and what their names are.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/queue_locks.hpp"

#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <sstream>
#include <string>
#include <string_view>

#include "base/byte_source.hpp"
#include "ctl/message.hpp"
#include "ctl/print_server.hpp"
#include "platform/pipe.hpp"
#include "tests/support/child.hpp"
#include "tests/support/own_computer.hpp"

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;

std::string lockFile() {
  return testing::TempDir() + "queue_locks_" + std::to_string(getpid()) + ".lock";
}

// The result of `attempt` in another process, where it is 0 to 255.
template <class Attempt>
int inAnotherProcess(Attempt attempt) {
  const pid_t child = fork();
  if (child == 0) _exit(attempt());
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class QueueLock : public testing::Test {
 protected:
  ~QueueLock() override { unlink(path_.c_str()); }

  // 0: another process can lock the queue; 1: this process has it; 2: anything else.
  int foundElsewhere(const std::string& queue) const {
    return inAnotherProcess([&] {
      const pid_t holder = QueueLocks(path_).tryLock(queue);
      if (holder == 0) return 0;
      return holder == getppid() ? 1 : 2;
    });
  }

  std::string path_ = lockFile();
};

TEST_F(QueueLock, IsRefusedToAnotherProcess) {
  QueueLocks locks(path_);
  ASSERT_EQ(locks.problem(), "");
  EXPECT_EQ(locks.tryLock("print1:631/kelm"), 0);
  EXPECT_EQ(foundElsewhere("print1:631/kelm"), 1);
  EXPECT_EQ(foundElsewhere("print1:631/other"), 0);
  EXPECT_EQ(foundElsewhere("print2:631/kelm"), 0);
  EXPECT_EQ(foundElsewhere("print1:632/kelm"), 0);
}

TEST_F(QueueLock, IsRefusedToItsOwnProcess) {
  QueueLocks locks(path_);
  EXPECT_EQ(locks.tryLock("kelm"), 0);
  EXPECT_EQ(locks.tryLock("kelm"), getpid());
  EXPECT_EQ(locks.tryLock("other"), 0);
}

TEST_F(QueueLock, IsFreeOnceItIsUnlocked) {
  QueueLocks locks(path_);
  EXPECT_EQ(locks.tryLock("kelm"), 0);
  EXPECT_EQ(locks.tryLock("other"), 0);
  locks.unlock("kelm");
  EXPECT_EQ(foundElsewhere("kelm"), 0);
  EXPECT_EQ(foundElsewhere("other"), 1);
  EXPECT_EQ(locks.tryLock("kelm"), 0);
  locks.unlock("never locked");
  EXPECT_EQ(foundElsewhere("kelm"), 1);
}

TEST_F(QueueLock, IsFreeAfterItsProcess) {
  EXPECT_EQ(inAnotherProcess([&] {
              QueueLocks locks(path_);
              const bool isLocked = locks.tryLock("kelm") == 0;
              return isLocked ? 0 : 1;
            }),
            0);
  EXPECT_EQ(QueueLocks(path_).tryLock("kelm"), 0);
}

// As a container sees a lock of the computer that it runs on.
using QueueLockInAContainer = QueueLock;

TEST_F(QueueLockInAContainer, IsRefusedThoughItsProcessIsNotSeen) {
  QueueLocks locks(path_);
  ASSERT_EQ(locks.tryLock("kelm"), 0);
  EXPECT_EQ(
      tests::inChild([&]() -> std::string {
        if (!tests::hideProcessesFromNextChild()) return "refused";
        return tests::inChild([&] { return nameOfHolder(QueueLocks(path_).tryLock("kelm")); });
      }),
      "another process");
}

// A process that has the lock of a queue as long as this object exists.
class OtherProcess {
 public:
  OtherProcess(const std::string& path, const std::string& queue) {
    int ends[2];
    EXPECT_TRUE(platform::openPipe(ends));
    process_ = fork();
    if (process_ == 0) hold(path, queue, ends[1]);
    close(ends[1]);
    char locked = 0;
    EXPECT_EQ(read(ends[0], &locked, 1), 1);
    close(ends[0]);
  }
  ~OtherProcess() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;

  pid_t number() const { return process_; }

 private:
  [[noreturn]] static void hold(const std::string& path, const std::string& queue, int end) {
    alarm(60);
    QueueLocks locks(path);
    if (locks.tryLock(queue) == 0) base::writeAll(end, std::string_view("1"));
    for (;;) pause();
  }

  pid_t process_ = -1;
};

TEST_F(QueueLock, IsWaitedForUntilTheLimit) {
  const OtherProcess other(path_, "kelm");
  QueueLocks locks(path_);
  LockWait wait;
  const auto start = LockWait::Clock::now();
  const auto after = [&](std::chrono::milliseconds time) {
    return wait.tryLock(locks, "kelm", 120s, start + time);
  };
  EXPECT_EQ(after(0ms), LockWait::State::kBegun);
  EXPECT_EQ(nameOfHolder(wait.holder()), "process " + std::to_string(other.number()));
  EXPECT_EQ(after(1s), LockWait::State::kGoingOn);
  EXPECT_EQ(after(119999ms), LockWait::State::kGoingOn);
  EXPECT_EQ(after(120200ms), LockWait::State::kTooLong);
}

TEST_F(QueueLock, MayBeWaitedForAgainWithANewLimit) {
  QueueLocks locks(path_);
  LockWait wait;
  const auto start = LockWait::Clock::now();
  const auto after = [&](std::chrono::seconds time) {
    return wait.tryLock(locks, "kelm", 120s, start + time);
  };
  {
    const OtherProcess other(path_, "kelm");
    EXPECT_EQ(after(0s), LockWait::State::kBegun);
  }
  EXPECT_EQ(after(1s), LockWait::State::kLocked);
  locks.unlock("kelm");
  const OtherProcess other(path_, "kelm");
  EXPECT_EQ(after(200s), LockWait::State::kBegun);
  EXPECT_EQ(after(319s), LockWait::State::kGoingOn);
  EXPECT_EQ(after(320s), LockWait::State::kTooLong);
}

TEST_F(QueueLock, IsWaitedForWithoutLimitWhereThisProcessHasIt) {
  QueueLocks locks(path_);
  EXPECT_EQ(locks.tryLock("kelm"), 0);
  LockWait wait;
  EXPECT_EQ(wait.tryLock(locks, "kelm", 0s), LockWait::State::kGoingOn);
  EXPECT_EQ(wait.tryLock(locks, "kelm", 0s), LockWait::State::kGoingOn);
  locks.unlock("kelm");
  EXPECT_EQ(wait.tryLock(locks, "kelm", 0s), LockWait::State::kLocked);
}

TEST_F(QueueLock, NamesTheOwnerOfAFileThatIsInItsPlace) {
  ASSERT_EQ(symlink("/nonexistent", path_.c_str()), 0);
  const struct passwd* user = getpwuid(geteuid());
  ASSERT_NE(user, nullptr);
  EXPECT_EQ(QueueLocks(path_).problem(),
            "the lock file " + path_ +
                " cannot be opened: Too many levels of symbolic links; it belongs to the user " +
                user->pw_name + ": remove it; without it two updates of one queue could mix");
}

TEST_F(QueueLock, NeedsItsFile) {
  const QueueLocks locks(path_ + "/file");
  EXPECT_EQ(locks.problem(),
            "the lock file " + path_ +
                "/file cannot be opened: No such file or directory; without it two "
                "updates of one queue could mix");
}

// The name of the lock that `server` gives to a queue.
std::string lockNameAt(const char* server, const Queue& queue) {
  std::ostringstream out;
  const Console console{out, out};
  return PrintServer(server, console).lockName(queue);
}

Queue queueNamed(const char* name, const char* uuid) {
  Queue queue;
  queue.name = name;
  queue.uuid = uuid;
  return queue;
}

TEST(LockName, IsTheSameForEachNameOfTheServer) {
  const Queue queue = queueNamed("kelm", "urn:uuid:08fac458-2419-3cfa-6e68-871fd0e4c447");
  for (const char* server : {"print1", "PRINT1:631", "192.0.2.1", "[::1]:631", "localhost",
                             "/run/cups/cups.sock", "print1.example:443"}) {
    EXPECT_EQ(lockNameAt(server, queue), queue.uuid) << server;
  }
  EXPECT_NE(
      lockNameAt("print1", queueNamed("kelm", "urn:uuid:7b1291d0-f676-33b9-68da-2ea8ec374a65")),
      queue.uuid);
}

TEST(LockName, IsTheQueuesNameWhereItHasNoUuid) {
  const Queue queue = queueNamed("kelm", "");
  for (const char* server : {"print1", "print1:631", "PRINT1", "Print1:631"}) {
    EXPECT_EQ(lockNameAt(server, queue), "print1:631/kelm") << server;
  }
  EXPECT_EQ(lockNameAt("print1:632", queue), "print1:632/kelm");
  EXPECT_EQ(lockNameAt("print2", queue), "print2:631/kelm");
  EXPECT_EQ(lockNameAt("print1", queueNamed("other", "")), "print1:631/other");
}

}  // namespace
}  // namespace kelm::ctl
