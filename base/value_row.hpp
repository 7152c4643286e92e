// One row of a table that maps a text to a text.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::base {

// A row with two nulls is empty; searches skip it.
struct ValueRow {
  const char* key;
  const char* value;
};

}  // namespace kelm::base
