// The name under which this process was started.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::platform {

// Without its directories.
const char* programName();

}  // namespace kelm::platform
