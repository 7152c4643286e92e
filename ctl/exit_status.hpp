// The exit statuses of kelmctl, the same for every subcommand.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::ctl {

inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;  // standard error says what failed and what to do
inline constexpr int kExitUsage = 2;   // wrong arguments; nothing was done

inline constexpr int kExitPartly = 3;  // done for some, or without some facts, which are named

}  // namespace kelm::ctl
