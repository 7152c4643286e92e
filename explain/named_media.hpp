// What libcups understands by the words of "media" and the members of "media-col".
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <optional>
#include <string>

namespace kelm::explain {

// All of these mark choices in the PPD.

struct PageSize {
  float width;  // points
  float length;
};

// The page size of a job with only this option, in the PPD whose choices are marked so far: a
// "media" that names no paper changes nothing.
std::optional<PageSize> markedPage(ppd_file_t* ppd, const char* name, const std::string& value);

// Whether libcups finds a paper in a word of "media".
bool namesAPaper(ppd_file_t* ppd, const std::string& word);

// The choice of the PPD's option for an IPP name of a tray or a paper type; empty when there is
// none.
std::string choiceOfMedium(ppd_file_t* ppd, const char* keyword, const std::string& name);

// The paper that cupsd makes of a media-size, in 1/100 mm; empty when the printer has none.
std::string paperOfSize(ppd_file_t* ppd, int width, int height);

}  // namespace kelm::explain
