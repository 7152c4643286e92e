// kelmctl settings with PPD files.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "ctl/exit_status.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/unit/ctl/command_runner.hpp"

namespace kelm::ctl {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

// A PPD file with this text, removed with the object.
class PpdFile {
 public:
  explicit PpdFile(std::string_view text) : path_(directory_.path() / "queue.ppd") {
    tests::writeFile(path_, text);
  }
  const char* path() const { return path_.c_str(); }

 private:
  tests::TemporaryDirectory directory_;
  std::filesystem::path path_;
};

constexpr char kFacts[] =
    "*PPD-Adobe: \"4.3\"\n"
    "*IsCustomSnmpCommunity: 1\n"
    "*SnmpCommunityName: QsO8cm8=\n"  // Büro
    "*IsWakeOnLan: 0\n"
    "*PrinterMacAddress: MDA6MTE6MjI6MzM6NDQ6NTU=\n"
    "*PrinterIPAddress: MTkyLjAuMi43\n"
    "*SharedBoxName0_Part1: QUJD\n"
    "*SharedBoxName4_Part1: RAlF\n"  // D, tab, E
    "*SelSharedBoxIndex0: 4\n";

TEST(Settings, AreReadableByDefault) {
  const PpdFile file(kFacts);
  const Outcome outcome = runKelmctl({"settings", "--ppd", file.path()});
  EXPECT_EQ(outcome.status, kExitDone);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "SNMP community is custom  yes\n"
            "SNMP community            Büro\n"
            "Wake-on-LAN               no\n"
            "MAC address               00:11:22:33:44:55\n"
            "Beyond a router           no\n"
            "IP address                192.0.2.7\n"
            "Facts are complete        no\n"
            "Personal folder           no\n"
            "Administrator log-in      yes\n"
            "Shared boxes              1  ABC\n"
            "                          5  D\\u0009E\n"
            "Selected shared boxes     (none)\n"
            "Selected box indexes      4\n"
            "Barcode areas             (none)\n"
            "Colour profiles           (none)\n"
            "Forms                     (none)\n");
}

TEST(Settings, ThatAreNotStoredAreNone) {
  const PpdFile file("*PPD-Adobe: \"4.3\"\n");
  const Outcome outcome = runKelmctl({"settings", "--ppd", file.path()});
  EXPECT_THAT(outcome.out, HasSubstr("\nMAC address               (none)\n"));
  EXPECT_THAT(outcome.out, HasSubstr("\nIP address                (none)\n"));
}

TEST(Settings, AreOneJsonObjectWhenAsked) {
  const PpdFile file(kFacts);
  const Outcome outcome = runKelmctl({"settings", "--json", "--ppd", file.path()});
  EXPECT_EQ(outcome.status, kExitDone);
  EXPECT_EQ(nlohmann::json::parse(outcome.out), nlohmann::json::parse(R"({
    "isCustomSnmpCommunity": true, "snmpCommunityName": "Büro", "isWakeOnLan": false,
    "printerMacAddress": "00:11:22:33:44:55", "isOverTheRouter": false,
    "printerIPAddress": "192.0.2.7", "ppdOptionsUpdated": false, "usePersonalFolder": false,
    "adminLoginModeEnabled": true, "sharedBoxes": ["ABC", "D\tE"], "sharedBoxNumbers": [1, 5],
    "selectedSharedBoxes": [],
    "selectedSharedBoxIndexes": [4], "barcodeAreas": [], "colorProfiles": [], "forms": []})"));
}

TEST(Settings, NeedAQueueOrAFileAndNotBoth) {
  for (const auto& arguments :
       std::vector<std::vector<const char*>>{{"settings"},
                                             {"settings", "--json"},
                                             {"settings", "queue", "--ppd", "file"},
                                             {"settings", "queue", "queue"},
                                             {"settings", "queue", "--frobnicate"},
                                             {"settings", "--ppd"}}) {
    const Outcome outcome = runKelmctl(arguments);
    EXPECT_EQ(outcome.status, kExitUsage);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, HasSubstr("Run kelmctl --help"));
  }
}

TEST(Settings, OfAMissingFileFailAndNameItAndTheReason) {
  const Outcome outcome = runKelmctl({"settings", "--ppd", "/nonexistent/x.ppd"});
  EXPECT_EQ(outcome.status, kExitFailed);
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_EQ(outcome.err,
            "kelmctl: the PPD file \"/nonexistent/x.ppd\" cannot be read: No such file or "
            "directory; give the path of a readable PPD file\n");
}

TEST(Settings, OfAFileThatIsNoPpdFailAndNameTheLine) {
  const PpdFile file("*PPD-Adobe: \"4.3\"\n*A: \"" + std::string(300, 'x') + "\"\n");
  const Outcome outcome = runKelmctl({"settings", "--ppd", file.path()});
  EXPECT_EQ(outcome.status, kExitFailed);
  EXPECT_THAT(outcome.err, HasSubstr("on line 2; "));
}

TEST(Settings, OfAQueueFailWhenNoPrintServerAnswers) {
  setenv("CUPS_SERVER", "/nonexistent/cups.sock", 1);
  const Outcome outcome = runKelmctl({"settings", "office"});
  EXPECT_EQ(outcome.status, kExitFailed);
  EXPECT_EQ(outcome.err,
            "kelmctl: the print server /nonexistent/cups.sock does not answer; start it, or name "
            "another one (-h, CUPS_SERVER)\n");
}

}  // namespace
}  // namespace kelm::ctl
