// What this project uses of macOS's System Configuration, for "make macos-check" and unit tests on
// computers without Apple's headers. Only declarations; a build on macOS uses the system's own.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <sys/types.h>

extern "C" {

using SCDynamicStoreRef = const struct __SCDynamicStore*;
using SCDynamicStoreCallBack = void (*)(SCDynamicStoreRef store, CFArrayRef changedKeys, void* info);
struct SCDynamicStoreContext;

SCDynamicStoreRef SCDynamicStoreCreate(CFAllocatorRef allocator, CFStringRef name,
                                       SCDynamicStoreCallBack callBack,
                                       SCDynamicStoreContext* context);
CFStringRef SCDynamicStoreCopyConsoleUser(SCDynamicStoreRef store, uid_t* user, gid_t* group);

CFStringRef SCDynamicStoreCopyComputerName(SCDynamicStoreRef store, CFStringEncoding* encoding);

}  // extern "C"
