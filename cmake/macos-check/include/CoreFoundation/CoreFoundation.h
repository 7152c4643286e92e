// What this project uses of macOS's Core Foundation, for "make macos-check" and unit tests on computers
// without Apple's headers. Only declarations; a build on macOS uses the system's own.
// SPDX-License-Identifier: Apache-2.0
#pragma once

extern "C" {

using Boolean = unsigned char;
using CFIndex = long;
using CFStringEncoding = unsigned int;
using CFTypeRef = const void*;
using CFPropertyListRef = CFTypeRef;
using CFAllocatorRef = const struct __CFAllocator*;
using CFStringRef = const struct __CFString*;
using CFArrayRef = const struct __CFArray*;
struct CFArrayCallBacks;

enum : CFStringEncoding { kCFStringEncodingUTF8 = 0x08000100 };
extern const CFArrayCallBacks kCFTypeArrayCallBacks;
extern const CFStringRef kCFPreferencesAnyHost;
extern const CFStringRef kCFPreferencesAnyUser;
extern const CFStringRef kCFPreferencesCurrentApplication;

#ifdef __APPLE__
#define CFSTR(text) reinterpret_cast<CFStringRef>(__builtin___CFStringMakeConstantString(text))
#else
CFStringRef CFSTR(const char* text);  // the unit tests have it
#endif

void CFRelease(CFTypeRef object);
CFArrayRef CFArrayCreate(CFAllocatorRef allocator, const void** values, CFIndex count,
                         const CFArrayCallBacks* callBacks);
CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text,
                                      CFStringEncoding encoding);
Boolean CFStringGetCString(CFStringRef text, char* room, CFIndex size, CFStringEncoding encoding);
void CFPreferencesSetValue(CFStringRef key, CFPropertyListRef value, CFStringRef application,
                           CFStringRef user, CFStringRef host);

}  // extern "C"
