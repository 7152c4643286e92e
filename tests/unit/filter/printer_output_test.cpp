// The printer's stream: what it writes, and what it logs if it cannot write.
// SPDX-License-Identifier: Apache-2.0
#include "filter/printer_output.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "platform/fake/fake_platform.hpp"
#include "tests/support/temporary_directory.hpp"

namespace kelm::filter {
namespace {

// A file that is open for `access` as long as the object exists.
class OpenFile {
 public:
  OpenFile(const std::string& path, int access)
      : descriptor_(open(path.c_str(), access | O_CREAT | O_CLOEXEC, 0600)) {}
  ~OpenFile() { close(descriptor_); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

class PrinterStream : public testing::Test {
 protected:
  tests::TemporaryDirectory directory_;
  std::string path_ = directory_.path() / "printer";
  platform::FakePlatform platform_;
};

TEST_F(PrinterStream, WritesWhatItIsGiven) {
  const OpenFile file(path_, O_WRONLY);
  {
    PrinterOutput output(file.descriptor());
    std::fputs("one\n", output.stream());
    std::fputs("two\n", output.stream());
  }
  EXPECT_EQ(tests::readFile(path_), "one\ntwo\n");
  EXPECT_TRUE(platform_.systemLog.messages.empty());
}

// Bytes that could not be written are lost; the next write does not try them again.
TEST_F(PrinterStream, SaysOnceWhyItCannotWrite) {
  const OpenFile file(path_, O_RDONLY);
  PrinterOutput output(file.descriptor());
  std::fputs("one\n", output.stream());
  EXPECT_EQ(std::fflush(output.stream()), 0);
  std::fputs("two\n", output.stream());
  EXPECT_EQ(std::fflush(output.stream()), 0);
  EXPECT_THAT(
      platform_.systemLog.messages,
      testing::ElementsAre("[Driver] cannot write the job: Bad file descriptor after 0 bytes"));
}

}  // namespace
}  // namespace kelm::filter
