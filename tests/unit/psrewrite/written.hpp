// What a writer makes of the lines that follow an opening line.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "job/print_job.hpp"
#include "psrewrite/job_stream.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::psrewrite {

struct Written {
  bool result;         // what the writer returned
  std::string output;  // what it wrote
  std::string rest;    // the input that it left

  bool operator==(const Written&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const Written& written) {
    return out << std::boolalpha << written.result << " [" << written.output << "] before ["
               << written.rest << "]";
  }
};

// `write` is called with the stream and its line buffer.
template <class Write>
Written writtenFrom(std::string_view input, const Write& write) {
  tests::MemorySource source(input);
  tests::MemoryOutput output;
  JobStream stream(source, output.stream());
  LineBuffer line;
  const bool result = write(stream, line);
  std::string rest;
  for (int c = 0; (c = stream.get()) != EOF;) rest += static_cast<char>(c);
  return {result, output.text(), rest};
}

template <class Writer>
Written written(const Writer& writer, job::PrintJobData& job, std::string_view input) {
  return writtenFrom(
      input, [&](JobStream& stream, LineBuffer& line) { return writer(stream, line, job); });
}

}  // namespace kelm::psrewrite
