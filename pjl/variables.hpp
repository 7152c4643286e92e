// The kinds of rows that describe the header's variables. A row is a constant with an option, a PJL
// name and data; calling it with a stream and a job writes the variable's line.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdio>
#include <span>
#include <variant>

#include "job/print_job.hpp"
#include "pjl/value_table.hpp"
#include "pjl/writers.hpp"

namespace kelm::pjl {

// Looks the option up in a table (Output_KeyValue).
struct TableVariable {
  const char* optionKey;
  const char* pjlName;
  ValueTableView table;

  void operator()(std::FILE* stream, const PrintJobData& job) const {
    Output_KeyValue(stream, job, optionKey, pjlName, table.rows, table.defaultIndex);
  }
};

// Copies the option's text (Output_CopyValue).
struct CopyVariable {
  const char* optionKey;
  const char* pjlName;
  const char* defaultText;

  void operator()(std::FILE* stream, const PrintJobData& job) const {
    Output_CopyValue(stream, job, optionKey, pjlName, defaultText);
  }
};

// Copies the option's text in upper case (Output_CopyValueWithUpperCase).
struct UpperCaseVariable {
  const char* optionKey;
  const char* pjlName;
  const char* defaultText;

  void operator()(std::FILE* stream, const PrintJobData& job) const {
    Output_CopyValueWithUpperCase(stream, job, optionKey, pjlName, defaultText);
  }
};

// An orientation (Output_OrientationValue).
struct OrientationVariable {
  const char* optionKey;
  const char* pjlName;
  std::span<const OrientationRow> rows;
  std::size_t defaultIndex;

  void operator()(std::FILE* stream, const PrintJobData& job) const {
    Output_OrientationValue(stream, job, optionKey, pjlName, rows, defaultIndex);
  }
};

// Two rows of the same variable: one for jobs from the maker's dialog, one for plain jobs.
template <class Row>
struct DialogOrPlain {
  Row dialog;
  Row plain;

  void operator()(std::FILE* stream, const PrintJobData& job) const {
    (job.isPrintPDE ? dialog : plain)(stream, job);
  }
};
template <class Row>
DialogOrPlain(Row, Row) -> DialogOrPlain<Row>;

// Where a variable with logic of its own takes its value from when the job has no option for it.
enum class Fallback { kRow, kComputer, kJobTitle, kPpdDefault };

// A variable with logic of its own. The texts after the writer are for docs/pjl-header.md and
// kelmctl explain: the options that dialog jobs and plain jobs use, the values, and the value
// without an option.
struct OwnVariable {
  const char* pjlName;
  void (*writer)(std::FILE*, PrintJobData&);
  const char* dialogSource;
  const char* plainSource;
  const char* values;
  const char* absent;
  Fallback fallback = Fallback::kRow;
  bool mayHaveNoLine = false;

  void operator()(std::FILE* stream, PrintJobData& job) const { writer(stream, job); }
};

// One step of the header: a pointer to a row of any kind, which must outlive the step.
using HeaderStep = std::variant<const TableVariable*, const CopyVariable*, const UpperCaseVariable*,
                                const OrientationVariable*, const DialogOrPlain<TableVariable>*,
                                const DialogOrPlain<CopyVariable>*,
                                const DialogOrPlain<UpperCaseVariable>*, const OwnVariable*>;

}  // namespace kelm::pjl
