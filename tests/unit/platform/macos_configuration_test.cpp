// What macOS's Core Foundation and System Configuration tell the platform, with stand-ins for both.
// SPDX-License-Identifier: Apache-2.0
#include <SystemConfiguration/SystemConfiguration.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/macos/macos_platform.hpp"

// All objects of the stand-ins have this type.
struct CoreFoundationObject {
  std::string text;
  std::vector<std::string> texts;
};

struct CFArrayCallBacks {};

namespace {

struct Configuration {
  std::optional<std::string> computerName;
  std::optional<std::string> consoleUser;
  bool isStoreThere = true;
  std::string storeName;          // with which the store was asked for
  std::string key;                // of the preference that was set
  std::vector<std::string> list;  // its value
  std::set<const void*> objects;  // not released yet
};
Configuration configuration;

const void* created(const CoreFoundationObject& object) {
  const void* copy = new CoreFoundationObject(object);
  configuration.objects.insert(copy);
  return copy;
}

CFStringRef createdText(const std::optional<std::string>& text) {
  return text ? static_cast<CFStringRef>(created({*text, {}})) : nullptr;
}

const CoreFoundationObject& objectOf(const void* object) {
  return *static_cast<const CoreFoundationObject*>(object);
}

}  // namespace

extern "C" {

const CFArrayCallBacks kCFTypeArrayCallBacks{};
const CFStringRef kCFPreferencesAnyHost = nullptr;
const CFStringRef kCFPreferencesAnyUser = nullptr;
const CFStringRef kCFPreferencesCurrentApplication = nullptr;

// As on macOS, a constant text has no owner.
CFStringRef CFSTR(const char* text) {
  static std::vector<std::unique_ptr<CoreFoundationObject>> objects;
  for (const auto& each : objects) {
    if (each->text == text) return reinterpret_cast<CFStringRef>(each.get());
  }
  objects.push_back(std::make_unique<CoreFoundationObject>(CoreFoundationObject{text, {}}));
  return reinterpret_cast<CFStringRef>(objects.back().get());
}

void CFRelease(CFTypeRef object) {
  ASSERT_EQ(configuration.objects.erase(object), 1U);
  delete static_cast<const CoreFoundationObject*>(object);
}

CFArrayRef CFArrayCreate(CFAllocatorRef /*allocator*/, const void** values, CFIndex count,
                         const CFArrayCallBacks* /*callBacks*/) {
  CoreFoundationObject array;
  for (CFIndex i = 0; i < count; ++i) array.texts.push_back(objectOf(values[i]).text);
  return static_cast<CFArrayRef>(created(array));
}

CFStringRef CFStringCreateWithCString(CFAllocatorRef /*allocator*/, const char* text,
                                      CFStringEncoding encoding) {
  EXPECT_EQ(encoding, kCFStringEncodingUTF8);
  return createdText(text);
}

Boolean CFStringGetCString(CFStringRef text, char* room, CFIndex size, CFStringEncoding encoding) {
  EXPECT_EQ(encoding, kCFStringEncodingUTF8);
  const std::string& bytes = objectOf(text).text;
  if (bytes.size() >= static_cast<std::size_t>(size)) return 0;
  std::memcpy(room, bytes.c_str(), bytes.size() + 1);
  return 1;
}

void CFPreferencesSetValue(CFStringRef key, CFPropertyListRef value, CFStringRef /*application*/,
                           CFStringRef /*user*/, CFStringRef /*host*/) {
  configuration.key = objectOf(key).text;
  configuration.list = objectOf(value).texts;
}

SCDynamicStoreRef SCDynamicStoreCreate(CFAllocatorRef /*allocator*/, CFStringRef name,
                                       SCDynamicStoreCallBack /*callBack*/,
                                       SCDynamicStoreContext* /*context*/) {
  configuration.storeName = objectOf(name).text;
  return configuration.isStoreThere ? static_cast<SCDynamicStoreRef>(created({})) : nullptr;
}

CFStringRef SCDynamicStoreCopyConsoleUser(SCDynamicStoreRef store, uid_t* /*user*/,
                                          gid_t* /*group*/) {
  EXPECT_TRUE(configuration.objects.contains(store));
  return createdText(configuration.consoleUser);
}

CFStringRef SCDynamicStoreCopyComputerName(SCDynamicStoreRef /*store*/,
                                           CFStringEncoding* /*encoding*/) {
  return createdText(configuration.computerName);
}

}  // extern "C"

namespace kelm::platform::macos_platform {
namespace {

class MacosConfiguration : public ::testing::Test {
 protected:
  void SetUp() override { configuration = {}; }
  void TearDown() override { EXPECT_TRUE(configuration.objects.empty()) << "not released"; }
};

TEST_F(MacosConfiguration, HasTheConsoleUser) {
  configuration.consoleUser = "jürgen";
  EXPECT_EQ(MacosConsoleUser().name(), "jürgen");
  EXPECT_EQ(configuration.storeName, "GetConsoleUser");
}

TEST_F(MacosConfiguration, MayHaveNoConsoleUser) { EXPECT_EQ(MacosConsoleUser().name(), ""); }

TEST_F(MacosConfiguration, MayBeMissing) {
  configuration.consoleUser = "anna";
  configuration.isStoreThere = false;
  EXPECT_EQ(MacosConsoleUser().name(), "");
}

TEST_F(MacosConfiguration, HasTheNameOfTheComputer) {
  configuration.computerName = "Anna’s Mac";
  EXPECT_EQ(MacosComputerName().get(), "Anna’s Mac");
}

TEST_F(MacosConfiguration, MayHaveNoNameOfTheComputer) { EXPECT_EQ(MacosComputerName().get(), ""); }

TEST_F(MacosConfiguration, HasNamesOfUpTo4095Bytes) {
  configuration.consoleUser = std::string(4095, 'u');
  configuration.computerName = std::string(4096, 'c');
  EXPECT_EQ(MacosConsoleUser().name(), std::string(4095, 'u'));
  EXPECT_EQ(MacosComputerName().get(), "");
}

TEST_F(MacosConfiguration, GetsTheLanguageOfTheJob) {
  MacosJobLanguage().prefer("de_DE");
  EXPECT_EQ(configuration.key, "AppleLanguages");
  EXPECT_EQ(configuration.list, std::vector<std::string>{"de_DE"});
}

}  // namespace
}  // namespace kelm::platform::macos_platform
