// The explanation of a job, as a page for a web browser.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

#include "explain/explanation.hpp"

namespace kelm::ctl {

struct Page {
  std::string title;
  std::vector<std::string> problems;  // safe for a terminal
  std::vector<explain::Line> lines;
  bool hasSources = false;  // whether the lines say where their values come from
  std::map<std::string, std::string> wrong = {};  // what is wrong with a variable; for a terminal
  std::vector<std::string> sections = {};         // of the PostScript; fit for a terminal
  std::vector<std::string> pictures = {};         // of the first pages, PNG files
};

// Writes one HTML document that needs no other file: pictures of the pages, the problems, the
// settings in the groups of the PPD (changed groups and settings first), and the whole header.
void writePage(std::ostream& out, const Page& page);

}  // namespace kelm::ctl
