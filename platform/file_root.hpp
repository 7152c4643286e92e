// Where the absolute paths of this system begin: "/", save in tests.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace kelm::platform {

class FileRoot {
 public:
  virtual ~FileRoot() = default;

  // The path under which this process finds `absolutePath` (it begins with "/").
  virtual std::string locate(std::string_view absolutePath) const = 0;
};

}  // namespace kelm::platform
