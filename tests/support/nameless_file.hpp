// A file without a name, for tests.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::tests {

// A descriptor for reading and writing, closed by programs that the process becomes; negative when
// there is none to have.
int openNamelessFile();

}  // namespace kelm::tests
