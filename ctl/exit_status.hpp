// The exit statuses of kelmctl, the same for every subcommand.
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::ctl {

inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;  // the message on standard error names the input and the cure
inline constexpr int kExitUsage = 2;   // the arguments make no sense; nothing was done

}  // namespace kelm::ctl
