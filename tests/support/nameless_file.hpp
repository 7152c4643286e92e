// A file without a name, for tests.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::tests {

// A descriptor for reading and writing, which is closed on exec; negative when there is none.
int openNamelessFile();

}  // namespace kelm::tests
