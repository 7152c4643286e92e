// kelmctl explain, from its command line to its result.
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "ctl/explain_page.hpp"
#include "ctl/explain_text.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/unit/ctl/command_runner.hpp"

namespace kelm::ctl {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr char kPpd[] = KELM_PPDS_DIR "/explain.ppd";
constexpr char kStandardPpd[] = KELM_DIALOG_PPD;

class ExplainCommand : public testing::Test {
  platform::FakePlatform platform_;
};

TEST_F(ExplainCommand, ShowsMeaningLineAndSource) {
  const Outcome outcome = runKelmctl({"explain", "--ppd", kPpd, "-o", "QVStapleMode=OneStaple"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, HasSubstr("Staple: One, top left                       "
                                     "@PJL SET QVSTAPLEMODE=1STAPLE     from "
                                     "QVStapleMode=OneStaple\n"));
  EXPECT_THAT(outcome.out, HasSubstr("@PJL ENTER LANGUAGE=POSTSCRIPT"));
}

TEST_F(ExplainCommand, ShowsOnlyWhatHasChanged) {
  const Outcome outcome =
      runKelmctl({"explain", "--ppd", kPpd, "--changed", "-o", "QVStapleMode=OneStaple"});
  EXPECT_THAT(outcome.out, Not(HasSubstr("@PJL SET QVJOG")));
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 2);
}

TEST_F(ExplainCommand, ShowsOnATerminalWhatHasChanged) {
  const auto linesOnATerminal = [](std::vector<const char*> arguments) {
    std::ostringstream out;
    std::ostringstream err;
    runCommandLine(static_cast<int>(arguments.size()), arguments.data(), {out, err, true, true});
    const std::string text = out.str();
    return std::count(text.begin(), text.end(), '\n');
  };
  EXPECT_EQ(linesOnATerminal({"kelmctl", "explain", "--ppd", kPpd, "-o", "QVStapleMode=OneStaple"}),
            2);
  EXPECT_GT(linesOnATerminal({"kelmctl", "explain", "--ppd", kPpd, "--all"}), 100);
}

TEST_F(ExplainCommand, TakesSeveralOptionsBeforeTheQueue) {
  const Outcome outcome = runKelmctl({"explain", "-o", "QVStapleMode=OneStaple", "-o",
                                      "QVDuplex=LongEdge", "--ppd", kPpd, "--json"});
  EXPECT_EQ(outcome.status, 0);
  const auto object = nlohmann::json::parse(outcome.out);
  int changed = 0;
  for (const auto& line : object["lines"]) changed += line["changed"] == true ? 1 : 0;
  EXPECT_EQ(changed, 3);  // QVSTAPLEMODE, DUPLEX, BINDING
}

TEST_F(ExplainCommand, TakesTheCopiesAsAnOption) {
  const Outcome outcome =
      runKelmctl({"explain", "--ppd", kStandardPpd, "--changed", "-o", "copies=3"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, HasSubstr("@PJL SET QTY=3                    from copies=3\n"));
  EXPECT_THAT(runKelmctl({"explain", "--ppd", kStandardPpd, "-o", "copies=3", "-n", "2"}).out,
              HasSubstr("@PJL SET QTY=2                    from -n 2\n"));
}

// lp uses the last number.
TEST_F(ExplainCommand, TakesTheLastNumberOfCopies) {
  const Outcome last = runKelmctl(
      {"explain", "--ppd", kStandardPpd, "-o", "copies=3", "-o", "sides=one-sided", "-n", "2"});
  EXPECT_EQ(last.status, 1);
  EXPECT_EQ(last.err, "kelmctl: copies=3 has no effect, because -n 2 comes after it\n");
  const Outcome first = runKelmctl(
      {"explain", "--ppd", kStandardPpd, "-n", "2", "-o", "sides=one-sided", "-o", "copies=3"});
  EXPECT_THAT(first.out, HasSubstr("@PJL SET QTY=3                    from copies=3\n"));
  EXPECT_EQ(first.err, "kelmctl: -n 2 has no effect, because copies=3 comes after it\n");
  const Outcome between =
      runKelmctl({"explain", "--ppd", kStandardPpd, "-o", "copies=3", "-n", "2", "-o", "copies=4"});
  EXPECT_THAT(between.out, HasSubstr("@PJL SET QTY=4                    from copies=4\n"));
}

TEST_F(ExplainCommand, RefusesCopiesThatAreNoNumber) {
  for (const char* copies : {"copies=0", "copies=-1", "copies=abc", "copies=12345", "copies="}) {
    const Outcome outcome = runKelmctl({"explain", "--ppd", kPpd, "-o", copies});
    EXPECT_EQ(outcome.status, 1) << copies;
    EXPECT_EQ(outcome.err,
              "kelmctl: " + std::string(copies) + " must be a number from 1 to 9999\n");
  }
}

TEST_F(ExplainCommand, FailsForAWrongOption) {
  const Outcome outcome = runKelmctl({"explain", "--ppd", kPpd, "-o", "QVStapleMode=OneStable"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "kelmctl: QVStapleMode=OneStable is not a choice of this option; did you mean "
            "OneStaple? The choices are OFF OneStaple TwoStaple\n");
  EXPECT_THAT(outcome.out, HasSubstr("EMPTY: the printer has no such choice"));
}

TEST_F(ExplainCommand, RefusesArgumentsThatMakeNoSense) {
  EXPECT_EQ(runKelmctl({"explain"}).status, 2);
  EXPECT_EQ(runKelmctl({"explain", "--ppd", kPpd, "-n", "0"}).status, 2);
  EXPECT_EQ(runKelmctl({"explain", "--ppd", kPpd, "--all", "--changed"}).status, 2);
  EXPECT_EQ(runKelmctl({"explain", "--stream", "x", "-o", "a=b"}).status, 2);
}

// What the filter writes for a stapled job, with one section.
std::string stapledStream(const tests::TemporaryDirectory& directory) {
  const auto json = nlohmann::json::parse(
      runKelmctl({"explain", "--ppd", kPpd, "--json", "-o", "QVStapleMode=OneStaple"}).out);
  std::string stream;
  for (const auto& line : json["lines"]) {
    const bool isFixed = line["variable"].is_null();
    if (!isFixed) stream += "@PJL SET " + std::string(line["variable"]) + "=";
    stream += std::string(line["value"]) + "\n";
  }
  stream +=
      "%!PS-Adobe-3.0\n%%BeginFeature: *QVStapleMode OneStaple\n"
      "(OneStaple) userdict exch /QVStapleMode exch put\n%%EndFeature\n";
  const std::string path = directory.path() / "stream.prn";
  tests::writeFile(path, stream);
  return path;
}

TEST_F(ExplainCommand, ShowsOfAStreamOnlyWhatHasChanged) {
  const tests::TemporaryDirectory directory;
  const std::string path = stapledStream(directory);
  const Outcome every = runKelmctl({"explain", "--ppd", kPpd, "--stream", path.c_str(), "--all"});
  EXPECT_EQ(every.status, 0) << every.out;
  EXPECT_THAT(every.out, HasSubstr("@PJL SET QVJOG=OFF\n"));
  EXPECT_THAT(every.out, HasSubstr("QVStapleMode=OneStaple\n"));
  EXPECT_EQ(runKelmctl({"explain", "--ppd", kPpd, "--stream", path.c_str()}).out, every.out);
  const Outcome changed =
      runKelmctl({"explain", "--ppd", kPpd, "--stream", path.c_str(), "--changed"});
  EXPECT_EQ(changed.status, 0);
  EXPECT_THAT(changed.out, testing::StartsWith("Staple: One, top left                       "
                                               "@PJL SET QVSTAPLEMODE=1STAPLE\n("));
  EXPECT_EQ(std::count(changed.out.begin(), changed.out.end(), '\n'), 3) << changed.out;
}

TEST_F(ExplainCommand, FailsForAStreamThatCannotBeRead) {
  const Outcome outcome = runKelmctl({"explain", "--stream", "/nonexistent/stream"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("/nonexistent/stream"));
}

TEST_F(ExplainCommand, FailsForAPageThatCannotBeWritten) {
  EXPECT_EQ(runKelmctl({"explain", "--ppd", kPpd, "--html", "/nonexistent/page"}).status, 1);
}

TEST(ExplainPage, IsWholeAndQuotesWhatItShows) {
  explain::Line line;
  line.variable = "QVJOBCOMMENT";
  line.value = "3C";
  line.label = {"Job comment", "<script>&\"\x1B", "Finishing"};
  line.changed = true;
  std::ostringstream out;
  explain::Line unchanged = line;
  unchanged.variable = "QVJOG";
  unchanged.label = {"Offset output", "Off", "Finishing"};
  unchanged.changed = false;
  explain::Line disagreeing = unchanged;
  disagreeing.variable = "DUPLEX";
  disagreeing.label = {"Two-sided", "Off", "Finishing"};
  Page page{"A <b> title", {"wrong & <why>"}, {unchanged, line, disagreeing}, false};
  page.wrong["DUPLEX"] = "the PostScript says <ON>";
  page.sections = {"QVDuplex=LongEdge"};
  page.pictures = {"PNG", "PN", "P"};
  writePage(out, page);
  EXPECT_THAT(out.str(), HasSubstr("<title>A &lt;b&gt; title</title>"));
  EXPECT_THAT(out.str(), HasSubstr("<li>wrong &amp; &lt;why&gt;</li>"));
  EXPECT_THAT(out.str(), HasSubstr("<h2>Finishing</h2>"));
  EXPECT_THAT(out.str(), HasSubstr("<dt>Job comment</dt><dd class=\"changed\">"
                                   "&lt;script&gt;&amp;&quot;\\u001B</dd>"));
  EXPECT_THAT(out.str(),
              HasSubstr("<dt>Two-sided</dt><dd class=\"wrong\">Off<span class=\"source\">"
                        "the PostScript says &lt;ON&gt;</span></dd>"));
  EXPECT_THAT(out.str(), HasSubstr("@PJL SET QVJOBCOMMENT=3C\n"));
  EXPECT_THAT(out.str(), HasSubstr("<pre>\nQVDuplex=LongEdge\n</pre>"));
  // What is wrong comes first, then what has changed, then the rest.
  EXPECT_LT(out.str().find("<dt>Two-sided"), out.str().find("<dt>Job comment"));
  EXPECT_LT(out.str().find("<dt>Job comment"), out.str().find("<dt>Offset output"));
  for (const char* picture : {"UE5H", "UE4=", "UA=="}) {
    EXPECT_THAT(out.str(), HasSubstr("src=\"data:image/png;base64," + std::string(picture) + "\""));
  }
  EXPECT_THAT(out.str(), Not(HasSubstr("http")));
}

TEST(ExplainPage, HasGroupsWithoutChangesAfterTheOthers) {
  const auto line = [](const char* variable, const char* group, bool changed) {
    explain::Line made;
    made.variable = variable;
    made.label = {variable, "On", group};
    made.changed = changed;
    return made;
  };
  Page page{"Title",
            {},
            {line("A", "First", false), line("B", "Second", true), line("C", "Third", false),
             line("D", "Fourth", false)},
            false};
  page.wrong["D"] = "wrong";
  std::ostringstream out;
  writePage(out, page);
  std::vector<std::size_t> places;
  for (const char* group : {"Second", "Fourth", "First", "Third"}) {
    places.push_back(out.str().find("<h2>" + std::string(group)));
  }
  EXPECT_TRUE(std::ranges::is_sorted(places));
  EXPECT_NE(places.back(), std::string::npos);
}

TEST(ShownText, ShowsBytesThatAreNoUtf8) {
  EXPECT_EQ(shownText("a\xFF\n"), "a\\xFF\\u000A");
  EXPECT_EQ(shownText("ä"), "ä");
}

}  // namespace
}  // namespace kelm::ctl
