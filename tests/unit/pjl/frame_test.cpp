// The frame of the header, byte for byte.
// SPDX-License-Identifier: Apache-2.0
#include "pjl/frame.hpp"

#include <gtest/gtest.h>

#include "pjl/writers.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::pjl {
namespace {

template <class Writer>
std::string frameLine(const Writer& writer) {
  tests::MemoryOutput output;
  writer(output.stream());
  return output.text();
}

TEST(Frame, BeginsWithTheUniversalExitLanguageSequence) {
  const std::string line = frameLine(Output_Header);
  EXPECT_EQ(line, "\x1B%-12345X@PJL\n");
  const std::string bytes{0x1B, 0x25, 0x2D, 0x31, 0x32, 0x33, 0x34,
                          0x35, 0x58, 0x40, 0x50, 0x4A, 0x4C, 0x0A};
  EXPECT_EQ(line, bytes);
}

TEST(Frame, HasACommentOf32Bytes) {
  const std::string line = frameLine(Output_Comment);
  EXPECT_EQ(line, "@PJL COMMENT KELM Printer Driver\n");
  EXPECT_EQ(line.size(), 32U + 1);
}

TEST(Frame, HasTheHeaderVersionIn26Bytes) {
  const std::string line = frameLine(Output_QVPJLVERSION);
  EXPECT_EQ(line, "@PJL SET QVPJLVERSION=2.00\n");
  EXPECT_EQ(line.size(), 26U + 1);
}

TEST(Frame, HasTheIdentifierIn36Bytes) {
  const std::string line = frameLine(Output_QVPJLIDENTIFIER);
  EXPECT_EQ(line, "@PJL SET QVPJLIDENTIFIER=KELM_IJ_PJL\n");
  EXPECT_EQ(line.size(), 36U + 1);
}

TEST(Frame, HasTheControlFlagIn28Bytes) {
  const std::string line = frameLine(Output_QVRIPCONTROLFLAG);
  EXPECT_EQ(line, "@PJL SET QVRIPCONTROLFLAG=13\n");
  EXPECT_EQ(line.size(), 28U + 1);
}

TEST(Frame, NamesTheDriverIn58BytesWithASmallS) {
  const std::string line = frameLine(Output_QVSOFTWARENAME);
  EXPECT_EQ(line, "@PJL SET QVSOFTWARENAME=KELM MAC Postscript Printer Driver\n");
  EXPECT_EQ(line.size(), 58U + 1);
}

TEST(Frame, HasTheDriverVersionIn34Bytes) {
  const std::string line = frameLine(Output_QVSOFTWAREVERSION);
  EXPECT_EQ(line, "@PJL SET QVSOFTWAREVERSION=1.5.000\n");
  EXPECT_EQ(line.size(), 34U + 1);
}

TEST(Frame, EndsWithTheSwitchToPostScriptIn30Bytes) {
  const std::string line = frameLine(Output_EnterPostScript);
  EXPECT_EQ(line, "@PJL ENTER LANGUAGE=POSTSCRIPT\n");
  EXPECT_EQ(line.size(), 30U + 1);
}

TEST(Frame, BreaksALineWithABareLineFeed) { EXPECT_EQ(frameLine(Output_LineBreak), "\n"); }

}  // namespace
}  // namespace kelm::pjl
