// A PPD record in libcups' layout (CUPS API: ppd.h), built from the model of a text. Only the
// fields that the text gives are filled.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

#include "ppdtext/model.hpp"

namespace kelm::ppdtext {

// Gives `count` elements of `size` bytes each, all zero, to be freed with free(3); null when there
// is no memory. calloc(3), except in tests.
using AllocateZeroed = std::function<void*(std::size_t count, std::size_t size)>;

// The record, owned by the caller until freeRecord. Null when there is no memory for the record
// itself; if memory is exhausted later, what was built so far. Both are reported to the system log.
// Keywords are cut to 40 bytes and texts to 80, between two characters.
ppd_file_t* buildRecord(const Model& model, const AllocateZeroed& allocate);

// The record of a PPD's text: of its model, with calloc(3). Null when the text has no model
// (without a message; `problem`, unless it is null, says why), else as buildRecord.
ppd_file_t* recordOf(std::u16string_view text, ReadProblem* problem = nullptr);

// Frees a record that one of these returned; null is allowed.
void freeRecord(ppd_file_t* ppd);

struct FreeRecord {
  void operator()(ppd_file_t* ppd) const { freeRecord(ppd); }
};
using Record = std::unique_ptr<ppd_file_t, FreeRecord>;

}  // namespace kelm::ppdtext
