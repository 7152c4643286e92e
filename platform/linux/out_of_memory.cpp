// An allocation that fails ends the program with exit status 1 and one line on standard error. The
// libraries that libcups uses do not check all of their allocations, so this replaces the C
// library's allocators, which those of C++ use too.
// SPDX-License-Identifier: Apache-2.0
#include "platform/out_of_memory.hpp"

#include <unistd.h>

#include <bit>
#include <cerrno>
#include <cstddef>

#include "base/byte_source.hpp"

// The C library's own allocators, under the names that it has for replacements.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

// Without stdio and atexit, which may need memory.
void* checked(void* memory, std::size_t size) {
  if (memory != nullptr || size == 0) return memory;
  kelm::base::writeAll(STDERR_FILENO, kelm::platform::kOutOfMemory);
  _exit(1);
}

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

void* malloc(std::size_t size) noexcept { return checked(__libc_malloc(size), size); }

void* calloc(std::size_t count, std::size_t size) noexcept {
  return checked(__libc_calloc(count, size), count * size);
}

void* realloc(void* memory, std::size_t size) noexcept {
  return checked(__libc_realloc(memory, size), size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  return checked(__libc_memalign(alignment, size), size);
}

// The C++ library of g++ 14 uses this for aligned memory.
int posix_memalign(void** memory, std::size_t alignment, std::size_t size) noexcept {
  if (alignment % sizeof(void*) != 0 || !std::has_single_bit(alignment)) return EINVAL;
  *memory = checked(__libc_memalign(alignment, size), size);
  return 0;
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
