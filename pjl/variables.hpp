// The kinds of rows of which the header's variables are made. A row is a constant that knows its
// option, its name and its data, and writes its line when it is called with a stream and a job.
#pragma once

#include <cstdio>

#include "base/callable_ref.hpp"
#include "filter/print_job.hpp"
#include "pjl/value_table.hpp"
#include "pjl/writers.hpp"

namespace kelm::pjl {

// A step of the header: a row, or a writer with logic of its own.
using HeaderStep = base::CallableRef<void(std::FILE*, PrintJobData&)>;

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

// Two rows for one variable: one for jobs of the maker's dialog, one for all others.
template <class DialogRow, class PlainRow = DialogRow>
struct TwoRoads {
  DialogRow dialog;
  PlainRow plain;

  void operator()(std::FILE* stream, const PrintJobData& job) const {
    job.isPrintPDE ? dialog(stream, job) : plain(stream, job);
  }
};

}  // namespace kelm::pjl
