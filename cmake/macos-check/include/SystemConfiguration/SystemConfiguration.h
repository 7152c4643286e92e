// What this project uses of macOS's System Configuration, for "make macos-check" on computers without
// Apple's headers. Only declarations; a build on macOS uses the system's own.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CoreFoundation/CoreFoundation.h>

extern "C" {

using SCDynamicStoreRef = const struct __SCDynamicStore*;

CFStringRef SCDynamicStoreCopyComputerName(SCDynamicStoreRef store, CFStringEncoding* encoding);

}  // extern "C"
