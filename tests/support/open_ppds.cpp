// Counts the PPDs that a test program has open: at its end, all must be closed. The leak checker
// cannot tell, because libcups leaks parts of damaged PPDs itself (lsan_suppressions.txt).
// SPDX-License-Identifier: Apache-2.0
#include <cups/ppd.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <mutex>
#include <set>

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::tests {
namespace {

class OpenPpds final : public testing::Environment {
 public:
  ppd_file_t* opened(ppd_file_t* ppd) {
    const std::lock_guard lock(mutex_);
    if (ppd != nullptr) open_.insert(ppd);
    return ppd;
  }

  // libcups also closes PPDs of its own.
  void closed(ppd_file_t* ppd) {
    const std::lock_guard lock(mutex_);
    open_.erase(ppd);
  }

  void TearDown() override { EXPECT_EQ(open_.size(), 0U) << "PPDs are still open"; }

 private:
  std::mutex mutex_;
  std::set<ppd_file_t*> open_;
};

// GoogleTest deletes it.
OpenPpds& openPpds() {
  static auto* const environment = new OpenPpds;
  return *environment;
}

const auto* const kRegistered = testing::AddGlobalTestEnvironment(&openPpds());

template <class Function>
Function* nextOne(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace
}  // namespace kelm::tests

// Instead of libcups' functions.
extern "C" {

ppd_file_t* ppdOpenFd(int file) {
  static const auto next = kelm::tests::nextOne<ppd_file_t*(int)>("ppdOpenFd");
  return kelm::tests::openPpds().opened(next(file));
}

ppd_file_t* ppdOpenFile(const char* path) {
  static const auto next = kelm::tests::nextOne<ppd_file_t*(const char*)>("ppdOpenFile");
  return kelm::tests::openPpds().opened(next(path));
}

void ppdClose(ppd_file_t* ppd) {
  static const auto next = kelm::tests::nextOne<void(ppd_file_t*)>("ppdClose");
  kelm::tests::openPpds().closed(ppd);
  next(ppd);
}
}
