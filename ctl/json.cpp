// What kelmctl's options --json print.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/json.hpp"

#include "ctl/safe_text.hpp"

namespace kelm::ctl {

std::string textOf(const Json& value, JsonLayout layout) {
  const int indentation = layout == JsonLayout::kIndented ? 2 : -1;
  return safeJson(value.dump(indentation, ' ', false, Json::error_handler_t::replace));
}

}  // namespace kelm::ctl
