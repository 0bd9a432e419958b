#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <new>

#include "tests/torture/steps.h"

// What stands behind the allocation functions of this program.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

using ktpnaips::test::counts;
using ktpnaips::test::fails;
using ktpnaips::test::FallibleFunction;
using ktpnaips::test::forget;
using ktpnaips::test::note;
using ktpnaips::test::noted;

constexpr FallibleFunction mallocFunction{"malloc", {ENOMEM}};
constexpr FallibleFunction callocFunction{"calloc", {ENOMEM}};
constexpr FallibleFunction reallocFunction{"realloc", {ENOMEM}};
constexpr FallibleFunction alignedFunction{"posix_memalign", {ENOMEM}};
constexpr FallibleFunction newFunction{"operator new", {ENOMEM}};

}  // namespace

void* operator new(std::size_t size) {
  void* const block =
      fails(newFunction, __builtin_return_address(0))
          ? nullptr
          : noted(__libc_malloc(std::max<std::size_t>(size, 1)), size, __builtin_return_address(0));
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void operator delete(void* block) noexcept {
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}

extern "C" {

void* malloc(std::size_t size) noexcept {
  return fails(mallocFunction, __builtin_return_address(0))
             ? nullptr
             : noted(__libc_malloc(size), size, __builtin_return_address(0));
}

void* calloc(std::size_t count, std::size_t size) noexcept {
  return fails(callocFunction, __builtin_return_address(0))
             ? nullptr
             : noted(__libc_calloc(count, size), count * size, __builtin_return_address(0));
}

void* realloc(void* block, std::size_t size) noexcept {
  if (fails(reallocFunction, __builtin_return_address(0))) return nullptr;
  const bool wasNoted = forget(block);
  void* const moved = __libc_realloc(block, size);
  if (moved != nullptr && (wasNoted || counts())) {
    note(moved, size, __builtin_return_address(0));
  }
  return moved;
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
  if (fails(alignedFunction, __builtin_return_address(0))) return ENOMEM;
  *block = noted(__libc_memalign(alignment, size), size, __builtin_return_address(0));
  return *block != nullptr ? 0 : ENOMEM;
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  return fails(alignedFunction, __builtin_return_address(0))
             ? nullptr
             : noted(__libc_memalign(alignment, size), size, __builtin_return_address(0));
}

void free(void* block) noexcept {
  forget(block);
  __libc_free(block);
}

}  // extern "C"
