#pragma once

#include <atomic>
#include <string_view>
#include <vector>

namespace ktpnaips {

/// A regular expression: case-sensitive, `^` and `$` are the ends of the text. It is compiled once,
/// on first use, so that a failure of that belongs to the procedure that uses it.
class Pattern {
 public:
  /// `expression` outlives the pattern.
  explicit Pattern(std::wstring_view expression) noexcept : expression_(expression) {}
  ~Pattern();
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;

  /// The first match and its groups (an empty text for one that took no part), as views into
  /// `text`; empty without a match.
  [[nodiscard]] std::vector<std::wstring_view> search(std::wstring_view text) const;

 private:
  struct Compiled;
  [[nodiscard]] const Compiled& compiled() const;

  std::wstring_view expression_;
  mutable std::atomic<const Compiled*> compiled_ = nullptr;
};

}  // namespace ktpnaips
