// A temporary file without a name.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/temporary_file.hpp"

#include <cups/cups.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "base/byte_source.hpp"

namespace kelm::ctl {

TemporaryFile::~TemporaryFile() {
  if (file_ >= 0) close(file_);
}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : file_(std::exchange(other.file_, -1)), error_(other.error_) {}

TemporaryFile& TemporaryFile::operator=(TemporaryFile&& other) noexcept {
  std::swap(file_, other.file_);
  std::swap(error_, other.error_);
  return *this;
}

bool TemporaryFile::open() {
  *this = TemporaryFile();
  char path[1024];
  file_ = cupsTempFd(path, sizeof path);
  error_ = file_ < 0 ? errno : 0;
  if (file_ >= 0) unlink(path);
  return file_ >= 0;
}

bool TemporaryFile::append(std::span<const char> bytes) {
  if (error_ == 0) error_ = base::writeAll(file_, bytes);
  return error_ == 0;
}

std::string TemporaryFile::problem() const {
  return error_ == 0
             ? ""
             : std::string("no temporary file (TMPDIR) can be written: ") + std::strerror(error_);
}

int TemporaryFile::descriptorAtTheBeginning() const {
  if (file_ < 0 || lseek(file_, 0, SEEK_SET) != 0) return -1;
  return fcntl(file_, F_DUPFD_CLOEXEC, 0);
}

}  // namespace kelm::ctl
