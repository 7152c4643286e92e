// The user who is logged in at the computer, in the form that the printer gets.
// SPDX-License-Identifier: Apache-2.0
#include "job/console_user.hpp"

#include "base/hex_text.hpp"
#include "platform/platform.hpp"

namespace kelm::job {

std::string consoleUserHex(std::size_t bufferSize) {
  const std::string user = platform::platform().consoleUser->name();
  return user.size() < bufferSize ? base::hexTextInBuffer(user) : std::string();
}

}  // namespace kelm::job
