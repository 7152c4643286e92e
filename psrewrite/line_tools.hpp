// The small string tools of every rewriter: the "XXX" placeholder and the parenthesised value.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "psrewrite/job_stream.hpp"

namespace kelm::psrewrite {

inline constexpr char kPlaceholder[] = "XXX";

// `source` with every non-overlapping `from`, from left to right, replaced by `to`; an empty `from`
// is never found. Nothing when memory is exhausted.
std::optional<std::string> replace_str(const char* source, const char* from, const char* to);

// Puts `value` into a value line "(old) tail": the result is "(" value ")" and the text between the
// first ")" (or run of them) and the next one. A value line is one parenthesised value and a tail
// without parentheses: everything before the first ")" and from a second one onwards is lost, and a
// line with nothing after its first ")" gets the text "(null)". Afterwards `line` holds the two
// pieces with ")" between them. Nothing when memory is exhausted.
std::optional<std::string> erase_str(std::string& line, const std::string& value);

// Zero-fills the buffer and reads the next line into it (at most 4095 bytes, ending kept); false
// at the end of the input. The second keeps the line out of the diagnostic files.
bool readValueLine(JobStream& stream, LineBuffer& buffer);
bool readValueLineUnlogged(JobStream& stream, LineBuffer& buffer);

// Reads the next line and writes it with every "XXX" replaced by `value`; true when it wrote. The
// third argument is ignored.
bool outputReplacingValue(JobStream& stream, LineBuffer& buffer, const void* ignored,
                          const char* value);

}  // namespace kelm::psrewrite
