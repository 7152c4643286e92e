// The explanation of a job, as text and as JSON.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "explain/explanation.hpp"
#include "explain/stream.hpp"

namespace kelm::ctl {

// `text`, of any bytes, made safe for a terminal as safeText does; bytes that are not UTF-8 become
// \x and two hex digits.
std::string shownText(std::string_view text);

// The line of the header, and what it means; empty for a line of the frame.
std::string lineText(const explain::Line& line);
std::string meaningText(const explain::Line& line);

// Where the value comes from, in words: "from your option sides=two-sided-long-edge".
std::string sourceText(const explain::Line& line);

// The remark as one sentence without a full stop.
std::string remarkText(const explain::Remark& remark);

// What is wrong with a stream, and where; safe for a terminal.
std::vector<std::string> problemTexts(const explain::StreamReport& report);

// What the feature sections of a stream say; fit for a terminal.
std::vector<std::string> sectionTexts(const explain::StreamReport& report);

// One line for each line of the header, or only for those that differ from a job
// without options.
void printExplanation(std::ostream& out, const explain::Explanation& explanation, bool changedOnly);

// One JSON object, with every line.
void printExplanationJson(std::ostream& out, const explain::Explanation& explanation);

// The findings, then one line for each line of the stream's header, and its sections; or only for
// those lines that differ from a job without options. With a PPD, the names are the PPD's.
void printStream(std::ostream& out, const explain::StreamReport& report, ppd_file_t* ppd,
                 bool changedOnly);

// One JSON object with all that the report has.
void printStreamJson(std::ostream& out, const explain::StreamReport& report, ppd_file_t* ppd);

}  // namespace kelm::ctl
