// Standard input, output and error of a process that was started without some of them.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::platform {

// Opens /dev/null as each of descriptors 0 to 2 that is closed. Call it first: any file opened
// later, such as the system log's socket, would otherwise become a standard stream.
void openStandardStreams();

}  // namespace kelm::platform
