// The pictures of a stream's pages, and what its PostScript can do to the computer.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/page_pictures.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/support/temporary_directory.hpp"

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::EndsWith;
using testing::SizeIs;
using testing::StartsWith;

// The user's directory for temporary files is one of the test's.
class PagePicturesTest : public testing::Test {
 protected:
  PagePicturesTest() : old_(std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp") {
    setenv("TMPDIR", directory_.path().c_str(), 1);
    tests::writeFile(directory_.path() / "letter", "private");
  }
  ~PagePicturesTest() override { setenv("TMPDIR", old_.c_str(), 1); }

  static std::vector<std::string> picturesOf(const std::string& stream) {
    PagePictures pictures;
    pictures.feed(stream);
    return pictures.finish();
  }

  // PostScript for the path of a file in the directory.
  std::string path(const std::string& name) const {
    return '(' + (directory_.path() / name).string() + ')';
  }

  void expectUntouched() const {
    EXPECT_THAT(directory_.names(), ElementsAre("letter"));
    EXPECT_EQ(tests::readFile(directory_.path() / "letter"), "private");
  }

 private:
  tests::TemporaryDirectory directory_;
  std::string old_;
};

TEST_F(PagePicturesTest, AreWholeFiles) {
  const auto pictures = picturesOf(
      "\x1B%-12345X@PJL\n@PJL ENTER LANGUAGE=POSTSCRIPT\n%!PS\n"
      "100 100 300 300 rectfill showpage\nshowpage\n");
  ASSERT_THAT(pictures, SizeIs(2));
  for (const std::string& picture : pictures) {
    EXPECT_THAT(picture, StartsWith("\x89PNG\r\n\x1A\n"));
    EXPECT_THAT(picture, EndsWith("IEND\xAE\x42\x60\x82"));
  }
  EXPECT_NE(pictures[0], pictures[1]);
}

TEST_F(PagePicturesTest, AreMadeOfLargePagesToo) {
  EXPECT_THAT(picturesOf("%!\n<< /PageSize [7200 7200] >> setpagedevice\n"
                         "100 100 5000 5000 rectfill showpage\n"),
              SizeIs(1));
}

TEST_F(PagePicturesTest, AreOfFourPagesWhateverTheStreamAsksFor) {
  EXPECT_THAT(picturesOf("%!\n<< /LastPage 40 >> setpagedevice\n40 { showpage } repeat\n"),
              SizeIs(4));
  expectUntouched();
}

TEST_F(PagePicturesTest, AreNotWaitedForAfterTheFourthPage) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THAT(picturesOf("%!\n4 { showpage } repeat\n{ } loop\n"), SizeIs(4));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15));
}

TEST_F(PagePicturesTest, AreMadeOfAStreamThatBeginsLateToo) {
  PagePictures pictures(2);
  std::this_thread::sleep_for(2500ms);
  pictures.feed(std::string_view("%!\nshowpage\n"));
  EXPECT_THAT(pictures.finish(), SizeIs(1));
}

// Nobody feeds it or looks after it meanwhile.
TEST_F(PagePicturesTest, DoNotKeepGhostscriptWhileTheStreamStaysOpen) {
  const auto start = std::chrono::steady_clock::now();
  PagePictures pictures(2);
  pictures.feed(std::string_view("%!\nshowpage\n"));
  siginfo_t ended{};
  while (ended.si_pid == 0 && std::chrono::steady_clock::now() - start < 10s) {
    std::this_thread::sleep_for(20ms);
    waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT);
  }
  EXPECT_EQ(ended.si_status, SIGALRM);
  EXPECT_THAT(pictures.finish(), SizeIs(1));
}

// A page is shown for each thing that the stream cannot do.
TEST_F(PagePicturesTest, LeaveTemporaryFilesAlone) {
  EXPECT_THAT(picturesOf("%!\n{ " + path("letter") +
                         " (r) file } stopped { showpage } if\n"
                         "{ " +
                         path("letter") +
                         " deletefile } stopped { showpage } if\n"
                         "{ " +
                         path("more") + " (w) file closefile } stopped { showpage } if\n"),
              SizeIs(3));
  expectUntouched();
}

TEST_F(PagePicturesTest, MakeNoTemporaryFiles) {
  EXPECT_THAT(picturesOf("%!\n20 { { null (w+) .tempfile } stopped { showpage } if } repeat\n"),
              SizeIs(4));
  expectUntouched();
}

}  // namespace
}  // namespace kelm::ctl
