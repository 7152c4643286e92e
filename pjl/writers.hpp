// The writers of which every line of the header is made: "@PJL SET " NAME "=" VALUE LF.
//
// None fails: a setting that cannot be resolved still gets its line, with an empty value. Values
// are not quoted; a line ends with a bare LF. Option values are those of the job alone.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdio>
#include <span>

#include "job/print_job.hpp"
#include "pjl/value_table.hpp"

namespace kelm::pjl {

using job::PrintJobData;

// Always writes.
void Output_Value(std::FILE* stream, const PrintJobData& job, const char* pjlName,
                  const char* text);

// Writes one LF.
void Output_LineBreak(std::FILE* stream);

// The option's text as it is; without the option, defaultText. Always writes.
void Output_CopyValue(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                      const char* pjlName, const char* defaultText);

// As Output_CopyValue, the option's text (not the default) in upper case, byte by byte, ASCII.
void Output_CopyValueWithUpperCase(std::FILE* stream, const PrintJobData& job,
                                   const char* optionKey, const char* pjlName,
                                   const char* defaultText);

// The value of the row whose key is the option's text; an empty value when no row has it. Without
// the option, the value at defaultIndex (empty beyond the table), save for two variables: "PAPER"
// is "AUTO", and "QVPAGESIZE" follows the job's "media" ("CUSTOMSIZE" for a custom one). Always
// writes.
void Output_KeyValue(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                     const char* pjlName, std::span<const ValueRow> rows, std::size_t defaultIndex);

// The value of the row whose key is choiceText (in hex text when hexFlag is set), or an empty one.
// No key of `rows` is null. Always writes.
void Output_ValueWithArray(std::FILE* stream, const PrintJobData& job, const char* pjlName,
                           const char* choiceText, std::span<const ValueRow> rows, bool hexFlag);

// Writes `text` when the option is present and contains `needle`; 1 when it wrote, else 0.
int Output_IfValueContains(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                           const char* needle, const char* pjlName, const char* text);

// One choice of an orientation option: dialogs send the digit or the name.
struct OrientationRow {
  const char* digit;
  const char* name;
  const char* value;
};

// The value of the row that has the option's text as its name or its digit; an empty value when
// none has. Without the option, the shape of the job's custom paper decides: rows[1] when it is
// wider than high, else rows[0]; nothing when the table has no row at defaultIndex. `rows` has two
// rows where defaultIndex is inside of it. Always writes.
void Output_OrientationValue(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                             const char* pjlName, std::span<const OrientationRow> rows,
                             std::size_t defaultIndex);

// The index of the first entry equal to `text` (null entries are skipped); 0 when there is none.
std::size_t Output_GetDefaultIndexWithArray(const char* text, std::span<const char* const> array);

// Whether the option is present and equals `text`. The first argument is ignored.
bool isValueEqual(const void* ignored, const PrintJobData& job, const char* optionKey,
                  const char* text);

}  // namespace kelm::pjl
