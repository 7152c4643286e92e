// A part of a test in a process of its own: what it changes in its environment does not affect
// other tests.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

namespace kelm::tests {

// The text that `body` returned in a child process; "died: STATUS" when the child failed.
std::string inChild(const std::function<std::string()>& body);

// The same on a computer of its own: host name, mounts and no session of logind. "refused" when the
// system does not allow that.
std::string onOwnComputer(const std::function<std::string()>& body);

}  // namespace kelm::tests
