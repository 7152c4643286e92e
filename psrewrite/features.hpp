// The printer's features in the PostScript: keyword, code.
//
// A feature section opens with "%%BeginFeature: *KEYWORD CHOICE"; the line that follows holds the
// value (docs/feature-sections.md).
#pragma once

#include <cstdint>
#include <span>

namespace kelm::psrewrite {

struct Feature {
  const char* keyword;
  std::int32_t code;  // by hundreds: stamps and shifts, gutters, colour, paper and trays, identity
};

// All features in the order in which a line is searched for them.
std::span<const Feature> features();

// The code of the first feature whose keyword stands anywhere in `line`; 0 when there is none, when
// the line opens no feature section ("BeginFeature"), or when it is null.
std::int32_t getFeature(const char* line);

}  // namespace kelm::psrewrite
