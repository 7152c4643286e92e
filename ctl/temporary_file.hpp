// A temporary file without a name.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>
#include <string>

namespace kelm::ctl {

// It is in TMPDIR. Because it has no name, nothing is left of it even if the process is killed.
class TemporaryFile {
 public:
  TemporaryFile() = default;
  ~TemporaryFile();
  TemporaryFile(TemporaryFile&& other) noexcept;
  TemporaryFile& operator=(TemporaryFile&& other) noexcept;

  // Makes a new file, which is empty. Both are false when the system refuses.
  bool open();
  bool append(std::span<const char> bytes);

  // Why open() or append() was false; empty when neither was.
  std::string problem() const;

  // A descriptor of the file, at its beginning, for the caller to close; -1 when there is none. It
  // and append() share one file offset.
  int descriptorAtTheBeginning() const;

 private:
  int file_ = -1;
  int error_ = 0;
};

}  // namespace kelm::ctl
