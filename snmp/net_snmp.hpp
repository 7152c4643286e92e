// The SNMP library's headers, in the order that they require.
// SPDX-License-Identifier: Apache-2.0
#pragma once

// clang-format off
#include <net-snmp/net-snmp-config.h>
#include <net-snmp/net-snmp-includes.h>
// clang-format on
