// The contents of a printer stream: its header, the feature sections of its PostScript, and what is
// wrong with them.
//
// The stream may contain anything. It is read once, in constant memory. Beyond the limits, findings
// are counted but not kept.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/byte_source.hpp"
#include "pjl/recorder.hpp"

namespace kelm::explain {

struct Section {
  std::string keyword;
  std::string choice;    // of the opening comment
  std::string value;     // that the printer's dictionary gets; empty where the section has none
  std::uint64_t offset;  // in bytes, of the first one
  double width = 0;      // of the page, in points; 0 where the section sets none
  double height = 0;
};

struct Finding {
  std::uint64_t offset;       // in bytes, of the line or section; 0 where something is missing
  std::string problem;        // any bytes of the stream may be in it
  std::string variable = {};  // of the header; empty when the finding is about none
};

struct StreamReport {
  bool isDialogJob = false;
  std::vector<pjl::RecordedLine> header;  // as sent; an unknown variable has no row
  std::vector<Section> sections;          // the first one of each keyword
  std::vector<Finding> findings;
  std::uint64_t moreFindings = 0;  // that are not kept
  std::uint64_t size = 0;          // of the stream, in bytes
};

StreamReport readStream(base::ByteSource& source);

}  // namespace kelm::explain
