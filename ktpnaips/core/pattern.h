#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips {

/// A regular expression, compiled once: case-sensitive, `^` and `$` are the ends of the text.
class Pattern {
 public:
  explicit Pattern(std::wstring_view expression);
  ~Pattern();
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;

  /// The first match and its groups (an empty text for one that took no part), as views into
  /// `text`; empty without a match.
  [[nodiscard]] std::vector<std::wstring_view> search(std::wstring_view text) const;

  /// All matches, left to right without overlap, joined by single spaces.
  [[nodiscard]] std::wstring joinedMatches(std::wstring_view text) const;

 private:
  struct Compiled;
  std::unique_ptr<Compiled> compiled_;
};

}  // namespace ktpnaips
