// Any bytes as a property file, XML or binary: the texts and their number are bounded by its size.
// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fake/fake_platform.hpp"
#include "platform/property_files.hpp"
#include "tests/fuzz/fuzz_target.hpp"
#include "tests/support/memory_file.hpp"

namespace {

using kelm::tests::expect;

// A UTF-16 text can need half as much again in UTF-8. An XML entity is longer than its character.
bool fits(const std::string& text, std::size_t fileSize) { return text.size() <= 2 * fileSize; }

}  // namespace

FUZZ_TARGET(property_file) {
  using namespace kelm::platform;
  FakePlatform platform;
  platform.fileRoot.root = "";
  const kelm::tests::MemoryFile file({reinterpret_cast<const char*>(data), size});
  const auto version = propertyText(file.path(), "ProductVersion");
  expect(!version || fits(*version, size));
  const std::vector<std::string> languages = propertyTexts(file.path(), "AppleLanguages");
  expect(languages.size() <= size);
  for (const std::string& language : languages) expect(fits(language, size));
  return 0;
}
