#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

/// What the fuzzing targets share. Each is one source with `LLVMFuzzerTestOneInput`.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

/// Ends the process as a finding when a rule does not hold.
inline void require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "A rule does not hold: %s\n", rule);
  std::abort();
}

/// An input, taken apart from its start.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return;
    rest_.resize(size);
    std::memcpy(rest_.data(), data, size);
  }

  [[nodiscard]] bool isEmpty() const { return at_ == rest_.size(); }

  /// The next byte, 0 after the last.
  std::uint8_t byte() { return isEmpty() ? 0 : static_cast<std::uint8_t>(rest_[at_++]); }

  /// What stands before the next occurrence of `end`, which is dropped, or all.
  std::string before(char end) {
    const std::size_t found = std::min(rest_.find(end, at_), rest_.size());
    std::string text = rest_.substr(at_, found - at_);
    at_ = std::min(found + 1, rest_.size());
    return text;
  }

  /// All that is left.
  std::string rest() {
    std::string text = rest_.substr(at_);
    at_ = rest_.size();
    return text;
  }

 private:
  std::string rest_;
  std::size_t at_ = 0;
};

}  // namespace fuzz
