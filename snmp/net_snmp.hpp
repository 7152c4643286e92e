// The SNMP library's headers, in the order in which they want to be read.
#pragma once

// clang-format off
#include <net-snmp/net-snmp-config.h>
#include <net-snmp/net-snmp-includes.h>
// clang-format on
