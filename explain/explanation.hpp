// What would be sent for a job: each line of its header, what it means and where its value comes
// from.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "explain/labels.hpp"
#include "explain/remarks.hpp"
#include "explain/request.hpp"
#include "explain/stream.hpp"

namespace kelm::explain {

enum class Origin {
  kFixed,         // a line of the frame
  kJob,           // options of the job
  kNoSuchChoice,  // the job's choice is not in the table: the value is empty
  kPpdDefault,
  kTableDefault,
  kComputer,
  kJobTitle,
};

// The name of the origin in JSON output.
const char* wordFor(Origin origin);

struct Line {
  std::string variable;  // empty for a line of the frame
  std::string value;     // of the variable, else the whole line
  Label label;
  Origin origin = Origin::kFixed;
  std::vector<Option> causes;  // as typed; "-n" is the number of copies
  std::vector<Option> became;  // the printer's own options that standard options became
  bool changed = false;        // differs from the header of a job without options
};

struct Explanation {
  std::vector<Line> lines;  // in the header's order
  std::vector<Remark> remarks;
};

// The PPD's texts should be localised before (ppdLocalize).
Explanation explained(const Request& request);

// The header of a stream as lines without sources. Without a PPD, the variables' names are used.
// Lines that differ from those of a job without options are marked as changed, except the names of
// computer, user and job.
std::vector<Line> linesOf(const StreamReport& report, ppd_file_t* ppd);

}  // namespace kelm::explain
