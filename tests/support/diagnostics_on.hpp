// The diagnostic files switched on for a test.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <string>

#include "platform/fake/fake_platform.hpp"
#include "tests/support/temporary_directory.hpp"

namespace kelm::tests {

// A fake platform whose root is a temporary directory with the switch file. The time is
// 30 September 2016, 14:05:09. The switch is on, and no file is named yet. The destructor switches
// it off and empties the names.
class DiagnosticsOn {
 public:
  DiagnosticsOn();
  ~DiagnosticsOn();
  DiagnosticsOn(const DiagnosticsOn&) = delete;
  DiagnosticsOn& operator=(const DiagnosticsOn&) = delete;

  // Names the three files as those of a job without options.
  void nameFiles();

  // The content of the diagnostic file that has this name now; "no file" when there is none.
  std::string content(const char* name) const;

  // Where the files are.
  std::filesystem::path caches() const { return root_.path() / "Library/Caches"; }

  platform::FakePlatform platform;

 private:
  TemporaryDirectory root_;
};

}  // namespace kelm::tests
