#include <ktpnaips/platform/posix/xml_memory.h>

#include <libxml/xmlmemory.h>

#include <cstddef>
#include <new>

namespace ktpnaips::xml {
namespace {

thread_local bool hasFailed = false;

xmlFreeFunc freeBehind = nullptr;
xmlMallocFunc allocateBehind = nullptr;
xmlMallocFunc allocateAtomicBehind = nullptr;
xmlReallocFunc reallocateBehind = nullptr;
xmlStrdupFunc duplicateBehind = nullptr;

template <class T>
T* noted(T* block) {
  if (block == nullptr) hasFailed = true;
  return block;
}

void* allocate(std::size_t size) {
  return noted(allocateBehind(size));
}

void* allocateAtomic(std::size_t size) {
  return noted(allocateAtomicBehind(size));
}

void* reallocate(void* block, std::size_t size) {
  return noted(reallocateBehind(block, size));
}

char* duplicate(const char* text) {
  return noted(duplicateBehind(text));
}

/// Leaves libxml2 as it was, for a host that unloads the library.
struct Watching {
  Watching() {
    xmlGcMemGet(&freeBehind, &allocateBehind, &allocateAtomicBehind, &reallocateBehind,
                &duplicateBehind);
    xmlGcMemSetup(freeBehind, allocate, allocateAtomic, reallocate, duplicate);
  }
  ~Watching() {
    xmlGcMemSetup(freeBehind, allocateBehind, allocateAtomicBehind, reallocateBehind,
                  duplicateBehind);
  }
  Watching(const Watching&) = delete;
  Watching& operator=(const Watching&) = delete;
};

}  // namespace

MemoryWatch::MemoryWatch() noexcept {
  hasFailed = false;
}

void MemoryWatch::check() const {
  if (hasFailed) throw std::bad_alloc();
}

void watchMemory() {
  static const Watching watching;
}

}  // namespace ktpnaips::xml
