// Custom values as print dialogs other than the maker's send them: "Custom." and the text.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

#include "job/print_job.hpp"

namespace kelm::job {

// The text of an option's value: in a value that contains "Custom.", the part between its first and
// second "." (a text with a "." in it is cut there); else the whole value.
std::string customText(const std::string& value);

// Puts the option's text into `out` when the option is present and its text is not empty and
// shorter than `size` bytes; otherwise leaves `out` unchanged.
void getCustomTextValue(const PrintJobData* job, const char* key, std::string& out,
                        std::size_t size);

// Puts the hex text of the option's text (of defaultText when the option is absent or its text is
// empty) into `out` when `size` is at least twice the text's length and the text is not empty;
// otherwise leaves `out` unchanged.
void getCustomTextHexValue(const PrintJobData* job, const char* key, std::string& out,
                           std::size_t size, const std::string& defaultText);

}  // namespace kelm::job
