// The SNMP library's headers, in the order that they require.
// SPDX-License-Identifier: Apache-2.0
#pragma once

// clang-format off
#include <net-snmp/net-snmp-config.h>
#include <net-snmp/net-snmp-includes.h>
#include <net-snmp/library/large_fd_set.h>
// clang-format on
