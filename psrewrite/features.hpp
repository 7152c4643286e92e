// The printer's features in the PostScript, in the order in which they are searched.
//
// A feature section opens with "%%BeginFeature: *KEYWORD CHOICE"; the line that follows holds the
// value (docs/feature-sections.md).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <span>

#include "psrewrite/feature_writers.hpp"

namespace kelm::psrewrite {

struct Feature {
  // A feature without a writer: its section passes through unchanged.
  constexpr Feature(const char* name, std::int32_t number) : keyword(name), code(number) {}
  // A row of feature_writers.hpp.
  template <class Row>
  constexpr Feature(const Row& row)
      : keyword(row.keyword),
        writer(row),
        code(row.code),
        row_(&row),
        isDialogOnly_(
            [](const void* self) { return static_cast<const Row*>(self)->isDialogOnly(); }) {}

  const char* keyword;
  FeatureWriter writer;
  std::int32_t code;  // by hundreds: stamps and shifts, gutters, colour, paper and trays, identity

  // Whether the option does nothing in jobs without the maker's dialog. Found when it is asked for:
  // g++ with the sanitizers does not compare functions while it compiles.
  bool dialogOnly() const { return isDialogOnly_ != nullptr && isDialogOnly_(row_); }

 private:
  const void* row_ = nullptr;
  bool (*isDialogOnly_)(const void* row) = nullptr;
};

// All features in the order in which a line is searched for them.
std::span<const Feature> features();

// The code of the first feature whose keyword is anywhere in `line`; 0 when there is none, when the
// line does not contain "BeginFeature", or when it is null.
std::int32_t getFeature(const char* line);

// The writer of the feature with this code; empty when it has none.
FeatureWriter featureWriter(std::int32_t code);

}  // namespace kelm::psrewrite
