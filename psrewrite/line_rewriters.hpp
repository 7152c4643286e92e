// Rewriters of a single line that write it with a line feed of their own.
//
// The first three read the next line into `line` without its line feed. At the end of the input
// they write nothing and return false; the two with a value do so when memory is exhausted, too.
// The copy loop does not call them: they are for callers that rewrite sizes themselves.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "psrewrite/job_stream.hpp"

namespace kelm::psrewrite {

// Every "Landscape" becomes "Portrait", or the other way round; the line is written unchanged when
// memory is exhausted.
bool outputQVCustomOrientation(JobStream& stream, LineBuffer& line, bool landscapeToPortrait);

// Every "XXX", or every "Auto", becomes `value`.
bool outputFeatureByCustomSizeValue(JobStream& stream, LineBuffer& line, const char* value);
bool outputFeatureByCustomSizeValueFLG(JobStream& stream, LineBuffer& line, const char* value);

// Writes `line` with every `from` replaced by `to`. Returns the length of the original `line`, or
// -1 for a null line or when memory is exhausted. The first keeps the result out of the diagnostic
// files.
std::int32_t outputFeatureByCustomSizeTitle(JobStream& stream, const char* line, const char* from,
                                            const char* to);
std::int32_t outputFeatureByCustomSizeValueTitle(JobStream& stream, const char* line,
                                                 const char* from, const char* to);

}  // namespace kelm::psrewrite
