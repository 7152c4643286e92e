// A part of a test in its own process: changes of its environment do not affect other tests.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

namespace kelm::tests {

// The text that `body` returned in a child process; "died: STATUS" when the child failed.
std::string inChild(const std::function<std::string()>& body);

// The same with its own host name and mounts, and without logind's sessions. "refused" if the
// system does not allow that.
std::string onOwnComputer(const std::function<std::string()>& body);

}  // namespace kelm::tests
