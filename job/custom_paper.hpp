// The job's custom paper: decided once by the pipeline, read by header and rewriting.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace kelm::job {

extern bool customSizeFlg;        // the job's "media" option names a custom size
extern std::int32_t widthLength;  // 1/100 mm, whole millimetres; 0 on every standard paper
extern std::int32_t heighLength;  // 1/100 mm, whole millimetres; 0 on every standard paper

}  // namespace kelm::job
