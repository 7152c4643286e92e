// A text that may be absent.
#pragma once

#include <optional>
#include <string>

namespace kelm::wakeup {

using Text = std::optional<std::string>;

}  // namespace kelm::wakeup
