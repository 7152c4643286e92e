// An optional text.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace kelm::wakeup {

using Text = std::optional<std::string>;

}  // namespace kelm::wakeup
