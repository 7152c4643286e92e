// Where absolute paths begin: "/", except in tests.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace kelm::platform {

class FileRoot {
 public:
  virtual ~FileRoot() = default;

  // The path at which this process finds `absolutePath`, which begins with "/".
  virtual std::string locate(std::string_view absolutePath) const = 0;
};

}  // namespace kelm::platform
