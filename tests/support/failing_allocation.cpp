#include "tests/support/failing_allocation.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

constexpr int never = -1;
thread_local int allocationsBeforeFailure = never;

}  // namespace

namespace ktpnaips::test {

FailingAllocation::FailingAllocation(int before) {
  allocationsBeforeFailure = before;
}

FailingAllocation::~FailingAllocation() {
  allocationsBeforeFailure = never;
}

bool FailingAllocation::hasFailed() const {
  return allocationsBeforeFailure == never;
}

}  // namespace ktpnaips::test

void* operator new(std::size_t size) {
  const bool fails = allocationsBeforeFailure == 0;
  if (allocationsBeforeFailure != never) --allocationsBeforeFailure;
  if (fails) throw std::bad_alloc();
  void* const memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

#ifdef KTP_SANITIZED  // The standard library's own calls the one above; a sanitizer's does not.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
#endif

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
