// The job's language on macOS: a preference of this process.
// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/core_foundation.hpp"
#include "platform/macos/macos_platform.hpp"

namespace kelm::platform::macos_platform {

void MacosJobLanguage::prefer(const char* language) {
  const Owned<CFStringRef> text(
      CFStringCreateWithCString(nullptr, language, kCFStringEncodingUTF8));
  if (!text) return;
  const void* only = text.get();
  const Owned<CFArrayRef> languages(CFArrayCreate(nullptr, &only, 1, &kCFTypeArrayCallBacks));
  if (!languages) return;
  CFPreferencesSetValue(CFSTR("AppleLanguages"), languages.get(), kCFPreferencesCurrentApplication,
                        kCFPreferencesAnyUser, kCFPreferencesAnyHost);
}

}  // namespace kelm::platform::macos_platform
