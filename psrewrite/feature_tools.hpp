// What every feature writer is made of: the next line with the job's value in it, dropped, copied.
//
// A writer is called right behind the opening line of its section with the stream, the line buffer
// and the job; it takes the section's value line(s) from the stream and writes the job's line. Each
// returns true when it wrote a line: not at the end of the input, and not when the line goes.
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

// Writes the next line with the option's value (without the option, defaultText) in its
// parentheses.
bool outputFeatureByReplacingValue(JobStream& stream, LineBuffer& buffer, const PrintJobData& job,
                                   const char* key, const char* defaultText);

// Writes the next line with every "XXX" replaced by `text`; a custom choice of the option `key`
// brings one line more, which goes.
bool outputCustomTextByReplacingValue(JobStream& stream, LineBuffer& buffer,
                                      const PrintJobData& job, const char* key,
                                      const std::string& text);

// The same with the option's own text, as hex text (`defaultText` when there is none) or raw.
bool outputCustomTextFeatureByReplacingValue(JobStream& stream, LineBuffer& buffer,
                                             const PrintJobData& job, const char* key,
                                             const char* defaultText, bool asHex);

// Writes the line in `buffer` with `value` in its parentheses, and logs it as read and as written;
// the line is lost when memory is exhausted.
bool writeWithValue(JobStream& stream, const LineBuffer& buffer, const std::string& value);

// What plain jobs do with a value line: drop it, copy it, or leave it to the copy loop. The
// unlogged ones do not write to the diagnostic files.
bool drop(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool dropUnlogged(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool copy(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool copyUnlogged(JobStream& stream, LineBuffer& buffer, PrintJobData& job);
bool leave(JobStream& stream, LineBuffer& buffer, PrintJobData& job);

}  // namespace kelm::psrewrite
