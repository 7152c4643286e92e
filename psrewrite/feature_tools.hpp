// The operations that feature writers are made of: rewrite, drop or copy a value line.
//
// A writer is called right after the opening line of its section was written, with the stream, the
// line buffer and the job. It consumes the section's value line(s) and writes the job's line. The
// result is true when it wrote a line: false at the end of the input and when the line is dropped.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "base/callable_ref.hpp"
#include "job/print_job.hpp"
#include "job/text_fields.hpp"
#include "psrewrite/job_stream.hpp"
#include "psrewrite/line_tools.hpp"

namespace kelm::psrewrite {

using job::PrintJobData;
using FeatureWriter = base::CallableRef<bool(JobStream&, LineBuffer&, PrintJobData&)>;

// Writes the next line with the option's value, or defaultText when the option is absent, in its
// parentheses.
bool outputFeatureByReplacingValue(JobStream& stream, LineBuffer& buffer, const PrintJobData& job,
                                   const char* key, const char* defaultText);

// Writes the next line with every "XXX" replaced by `text`. With a custom choice of the option
// `key`, the section has one more line before it, which is dropped.
bool outputCustomTextByReplacingValue(JobStream& stream, LineBuffer& buffer,
                                      const PrintJobData& job, const char* key,
                                      const std::string& text);

// The same with the option's own text, either as hex text (of `defaultText` when the option has
// none) or unchanged.
bool outputCustomTextFeatureByReplacingValue(JobStream& stream, LineBuffer& buffer,
                                             const PrintJobData& job, const char* key,
                                             const char* defaultText, bool asHex);

// Writes the line in `buffer` with `value` in its parentheses. When memory is exhausted, the line
// is lost and the result is false.
bool writeWithValue(JobStream& stream, const LineBuffer& buffer, const std::string& value);

// What a job without the maker's dialog does with a value line: drop it, copy it, or leave it to
// the copy loop. The unlogged ones keep the line out of the diagnostic files.
bool drop(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool dropUnlogged(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool copy(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool copyUnlogged(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool leave(JobStream& stream, LineBuffer& buffer, PrintJobData& job);

}  // namespace kelm::psrewrite
