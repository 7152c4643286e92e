// A file as text.
#include "ppdtext/text_file.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cstddef>
#include <span>

#include "base/byte_source.hpp"
#include "ppdtext/unicode_text.hpp"

namespace kelm::ppdtext {
namespace {

constexpr std::size_t kMaxBytes = std::size_t{1} << 29;
constexpr std::size_t kBlock = std::size_t{1} << 16;

// None beyond the longest file, and for a descriptor that is no file (a folder).
std::optional<std::string> allBytes(int descriptor) {
  base::DescriptorSource source(descriptor);
  char probe = 0;
  if (::read(descriptor, &probe, 0) != 0) return std::nullopt;
  std::string bytes;
  std::string block(kBlock, '\0');
  while (const std::size_t count = source.read(block)) {
    bytes.append(block, 0, count);
    if (bytes.size() > kMaxBytes) return std::nullopt;
  }
  return bytes;
}

}  // namespace

std::optional<std::u16string> readTextFile(const char* path) {
  const int descriptor = ::open(path, O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return std::nullopt;
  const auto bytes = allBytes(descriptor);
  ::close(descriptor);
  return bytes ? toUtf16(*bytes) : std::nullopt;
}

}  // namespace kelm::ppdtext
