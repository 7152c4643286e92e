// The D-Bus names of the filter and the wake-up service (docs/wake-up-bus.md).
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace kelm::platform {

inline constexpr char kWakeUpService[] = "com.kelm.KelmWoLServices";
inline constexpr char kWakeUpObject[] = "/com/kelm/KelmWoLServices";
inline constexpr char kWakeUpInterface[] = "com.kelm.KelmWoLServiceProtocol";
inline constexpr char kWakeUpMethod[] = "XpcSnmpWakeUpOnLan";

inline constexpr char kCallBackObject[] = "/com/kelm/XPCCallObject";
inline constexpr char kCallBackInterface[] = "com.kelm.XPCCallProtocol";
inline constexpr char kCallBackMethod[] = "callFinishedXPCProcess";

// Sent to the same object before the call-back of a request that was refused. Its argument is one
// string, the reason.
inline constexpr char kRefusalInterface[] = "com.kelm.KelmWoLRefusal";
inline constexpr char kRefusalMethod[] = "wakeUpRefused";

}  // namespace kelm::platform
