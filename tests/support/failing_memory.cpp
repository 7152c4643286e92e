// Memory that runs out when a test says so: the replaceable operators of the standard library
// ([new.delete.single]) over malloc, with a limit in front.
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/failing_memory.hpp"

#include <cstdlib>
#include <limits>
#include <new>

namespace kelm::tests {
namespace {

constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();
thread_local std::size_t mostBytes = kNoLimit;

void* allocate(std::size_t size) {
  void* memory = size > mostBytes ? nullptr : std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

ScopedMemoryLimit::ScopedMemoryLimit(std::size_t limit) { mostBytes = limit; }

ScopedMemoryLimit::~ScopedMemoryLimit() { mostBytes = kNoLimit; }

}  // namespace kelm::tests

void* operator new(std::size_t size) { return kelm::tests::allocate(size == 0 ? 1 : size); }

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
