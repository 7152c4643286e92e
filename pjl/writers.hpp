// The writers that every line of the header goes through: "@PJL SET " NAME "=" VALUE LF.
//
// They never fail: a setting that cannot be resolved still gets its line, with an empty value.
// Values are not quoted, and a line ends with a bare LF. Options are the job's own, never the PPD's
// defaults.
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

// The option's text, or defaultText without the option. Always writes.
void Output_CopyValue(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                      const char* pjlName, const char* defaultText);

// As Output_CopyValue, with a to z of the option's text (not of the default) in upper case.
void Output_CopyValueWithUpperCase(std::FILE* stream, const PrintJobData& job,
                                   const char* optionKey, const char* pjlName,
                                   const char* defaultText);

// The value of the row whose key is the option's text; an empty value when no row has that key.
// Without the option, the value at defaultIndex (empty beyond the table), except for two variables:
// "PAPER" is "AUTO", and "QVPAGESIZE" follows the job's "media" ("CUSTOMSIZE" for a custom one).
// Always writes.
void Output_KeyValue(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                     const char* pjlName, std::span<const ValueRow> rows, std::size_t defaultIndex);

// The value of the row whose key is choiceText (as hex text when hexFlag is set), or an empty
// value. No key of `rows` may be null. Always writes.
void Output_ValueWithArray(std::FILE* stream, const PrintJobData& job, const char* pjlName,
                           const char* choiceText, std::span<const ValueRow> rows, bool hexFlag);

// Writes `text` when the option is present and contains `needle`. Returns 1 when it wrote, else 0.
int Output_IfValueContains(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                           const char* needle, const char* pjlName, const char* text);

// One choice of an orientation option. Dialogs send either the digit or the name.
struct OrientationRow {
  const char* digit;
  const char* name;
  const char* value;
};

// The value of the row whose name or digit is the option's text; an empty value when there is none.
// Without the option, the shape of the job's custom paper decides: rows[1] when it is wider than
// high, else rows[0]; an empty value when defaultIndex is beyond the table. When defaultIndex is
// inside the table, `rows` must have two rows. Always writes.
void Output_OrientationValue(std::FILE* stream, const PrintJobData& job, const char* optionKey,
                             const char* pjlName, std::span<const OrientationRow> rows,
                             std::size_t defaultIndex);

// The index of the first entry equal to `text`, or 0. Null entries are skipped.
std::size_t Output_GetDefaultIndexWithArray(const char* text, std::span<const char* const> array);

// Whether the option is present and equals `text`. The first argument is ignored.
bool isValueEqual(const void* ignored, const PrintJobData& job, const char* optionKey,
                  const char* text);

}  // namespace kelm::pjl
