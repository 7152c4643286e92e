// A file as text.
// SPDX-License-Identifier: Apache-2.0
#include "ppdtext/text_file.hpp"

#include <cstddef>
#include <fstream>

#include "ppdtext/unicode_text.hpp"

namespace kelm::ppdtext {
namespace {

constexpr std::size_t kMaxBytes = std::size_t{1} << 29;
constexpr std::size_t kBlock = std::size_t{1} << 16;

// None for a file that is too long, or when reading fails (on a directory, for example).
std::optional<std::string> allBytes(std::istream& file) {
  std::string bytes;
  std::string block(kBlock, '\0');
  do {
    file.read(block.data(), static_cast<std::streamsize>(block.size()));
    bytes.append(block, 0, static_cast<std::size_t>(file.gcount()));
    if (bytes.size() > kMaxBytes) return std::nullopt;
  } while (file.good());
  return file.bad() ? std::nullopt : std::optional(bytes);
}

}  // namespace

std::optional<std::u16string> readTextFile(const char* path) {
  if (path == nullptr) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  if (!file.is_open()) return std::nullopt;
  const auto bytes = allBytes(file);
  return bytes ? toUtf16(*bytes) : std::nullopt;
}

}  // namespace kelm::ppdtext
