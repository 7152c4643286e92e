// The kinds of rows of which the header's variables are made. A row is a constant that knows its
// option, its name and its data, and writes its line when it is called with a stream and a job.
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

// "This option through this table" (Output_KeyValue).
struct TableVariable {
  const char* optionKey;
  const char* pjlName;
  ValueTableView table;

  void operator()(std::FILE* stream, const PrintJobData& job) const {
    Output_KeyValue(stream, job, optionKey, pjlName, table.rows, table.defaultIndex);
  }
};

// "This option as it is" (Output_CopyValue).
struct CopyVariable {
  const char* optionKey;
  const char* pjlName;
  const char* defaultText;

  void operator()(std::FILE* stream, const PrintJobData& job) const {
    Output_CopyValue(stream, job, optionKey, pjlName, defaultText);
  }
};

// "This option in upper case" (Output_CopyValueWithUpperCase).
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

// One row for jobs of the maker's dialog and one, of the same variable, for all others.
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

// A variable with logic of its own. What stands beside the writer is for readers of the header's
// documentation: the options that it reads on each road, and what it writes without them.
struct OwnVariable {
  const char* pjlName;
  void (*writer)(std::FILE*, PrintJobData&);
  const char* dialogSource;
  const char* plainSource;
  const char* values;
  const char* absent;

  void operator()(std::FILE* stream, PrintJobData& job) const { writer(stream, job); }
};

// One step of the header: a row of any kind, which outlives it.
using HeaderStep = std::variant<const TableVariable*, const CopyVariable*, const UpperCaseVariable*,
                                const OrientationVariable*, const DialogOrPlain<TableVariable>*,
                                const DialogOrPlain<CopyVariable>*,
                                const DialogOrPlain<UpperCaseVariable>*, const OwnVariable*>;

}  // namespace kelm::pjl
