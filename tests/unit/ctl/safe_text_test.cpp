// Text of unknown origin, made safe for a terminal.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/safe_text.hpp"

#include <gtest/gtest.h>

namespace kelm::ctl {
namespace {

TEST(SafeText, LeavesPrintableTextOfAllLanguages) {
  EXPECT_EQ(safeText("Büro Süd, 共有 ~"), "Büro Süd, 共有 ~");
  EXPECT_EQ(safeText(""), "");
}

TEST(SafeText, EscapesControlCharacters) {
  EXPECT_EQ(safeText("a\x1B[31m\n\t\x7F"), "a\\u001B[31m\\u000A\\u0009\\u007F");
}

TEST(SafeText, EscapesC1ControlCharactersAndNothingAroundThem) {
  EXPECT_EQ(safeText("\xC2\x80\xC2\x9B\xC2\x9F\xC2\xA0"), "\\u0080\\u009B\\u009F\xC2\xA0");
}

TEST(SafeText, EscapesLineSeparatorsAndBidirectionalControlsAndNothingAroundThem) {
  EXPECT_EQ(safeText("\u2027\u2028\u202A\u202E\u202F"), "\u2027\\u2028\\u202A\\u202E\u202F");
  EXPECT_EQ(safeText("\u2065\u2066\u2069\u206A"), "\u2065\\u2066\\u2069\u206A");
}

TEST(SafeText, EscapesBytesThatAreNotUtf8) {
  EXPECT_EQ(safeText("a\xFF\xC3(\xE2\x82"), "a\\xFF\\xC3(\\xE2\\x82");
  EXPECT_EQ(safeText("\xF0\x9F\x96\xA8"), "\xF0\x9F\x96\xA8");
}

TEST(SafeText, DoublesABackslash) { EXPECT_EQ(safeText("a\\u0009"), "a\\\\u0009"); }

TEST(SafeJson, EscapesWhatJsonAllowsAndLeavesWhatItEscapes) {
  EXPECT_EQ(safeJson("{\n  \"a\": \"\\u001B\\\\ \x7F\xC2\x9B\u202E\u2069 共有\"\n}"),
            "{\n  \"a\": \"\\u001B\\\\ \\u007F\\u009B\\u202E\\u2069 共有\"\n}");
}

TEST(ShellWord, IsInApostrophesUnlessAllCharactersAreHarmless) {
  EXPECT_EQ(shellWord("ipp://192.0.2.7:631/a%20b_c"), "ipp://192.0.2.7:631/a%20b_c");
  EXPECT_EQ(shellWord("[fe80::1]:8631"), "'[fe80::1]:8631'");
  EXPECT_EQ(shellWord("dnssd://A;reboot/cups?uuid=1"), "'dnssd://A;reboot/cups?uuid=1'");
  EXPECT_EQ(shellWord("$(reboot)"), "'$(reboot)'");
  EXPECT_EQ(shellWord("a'b"), "'a'\"'\"'b'");
  EXPECT_EQ(shellWord(""), "''");
}

}  // namespace
}  // namespace kelm::ctl
