#pragma once

namespace ktpnaips::xml {

/// Whether libxml2 has had all the memory that it asked for on the calling thread: many of its
/// functions go on without, and leave out what they had no room for.
class MemoryWatch {
 public:
  /// From now on.
  MemoryWatch() noexcept;
  /// Throws "Out of memory" when it has not.
  void check() const;
};

/// Lets `MemoryWatch` see what libxml2 asks for; the host's own functions for its memory stay
/// behind ours.
void watchMemory();

}  // namespace ktpnaips::xml
