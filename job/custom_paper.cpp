// The job's custom paper: decided once by the pipeline, read by header and rewriting.
// SPDX-License-Identifier: Apache-2.0
#include "job/custom_paper.hpp"

namespace kelm::job {

bool customSizeFlg = false;
std::int32_t widthLength = 0;
std::int32_t heighLength = 0;

}  // namespace kelm::job
