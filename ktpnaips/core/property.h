#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

/// Properties as every class of the library has them: `object.Name()` reads, `object.Name(value)`
/// writes. A rule decides what a write stores; a refused value leaves the old one, silently.
namespace ktpnaips {

namespace rule {

/// Stores the value as given.
struct AsGiven {};

/// Trims spaces at both ends and converts to upper case.
struct Cleaned {
  static std::wstring apply(std::wstring_view value);
};

/// As `Cleaned`, and makes runs of spaces single.
struct Collapsed {
  static std::wstring apply(std::wstring_view value);
};

/// The first `units` UTF-16 units of the collapsed text.
std::wstring collapsedAndCut(std::wstring_view value, std::size_t units);

/// True when the text has no more than `units` UTF-16 units.
bool fits(std::wstring_view text, std::size_t units);

/// As `Collapsed`, then cut to its first `Units` UTF-16 units.
template <std::size_t Units>
struct CutTo {
  static std::wstring apply(std::wstring_view value) { return collapsedAndCut(value, Units); }
};

/// As `Collapsed`; refuses a result of more than `Units` UTF-16 units.
template <std::size_t Units>
struct AtMost : Collapsed {
  static bool accepts(std::wstring_view collapsed) { return fits(collapsed, Units); }
};

/// The characters that a `FirstOf` accepts.
template <std::size_t Size>
struct Letters {
  // NOLINTNEXTLINE(google-explicit-constructor): written as a plain literal where it is used
  constexpr Letters(const wchar_t (&literal)[Size]) { std::copy_n(literal, Size, text); }
  [[nodiscard]] constexpr std::wstring_view view() const { return {text, Size - 1}; }

  wchar_t text[Size]{};
};

/// As `Cleaned`, then keeps the first character; refuses one that is not in `Set`. An empty text is
/// accepted.
template <Letters Set>
struct FirstOf {
  static std::wstring apply(std::wstring_view value) { return Cleaned::apply(value).substr(0, 1); }
  static bool accepts(std::wstring_view first) {
    return Set.view().find(first) != std::wstring_view::npos;
  }
};

/// Refuses a number outside `Low` to `High`.
template <auto Low, auto High>
struct Within {
  static constexpr bool accepts(auto value) { return value >= Low && value <= High; }
};

/// Refuses a number below `Low`.
template <auto Low>
struct AtLeast {
  static constexpr bool accepts(auto value) { return value >= Low; }
};

}  // namespace rule

/// A readable and writable property.
template <class T, class Rule = rule::AsGiven>
class Property {
 public:
  Property() = default;
  /// With a value that the rule is not asked about.
  explicit Property(T initial) : value_(std::move(initial)) {}

  /// Reads it.
  const T& operator()() const noexcept { return value_; }

  /// Writes it, or leaves it when the rule refuses the value.
  void operator()(T value) {
    if constexpr (requires { Rule::accepts(value); }) {
      if (!Rule::accepts(value)) return;
    }
    value_ = std::move(value);
  }

 private:
  T value_{};
};

/// A text property. What the rule makes of a value is what it accepts or refuses.
template <class Rule>
class Property<std::wstring, Rule> {
 public:
  Property() = default;
  /// With a value that the rule is not asked about.
  explicit Property(std::wstring_view initial) : value_(initial) {}

  /// Reads it.
  const std::wstring& operator()() const noexcept { return value_; }

  /// Writes what the rule makes of the value, or leaves it when that is refused.
  void operator()(std::wstring_view value) {
    if constexpr (requires { Rule::apply(value); }) {
      store(Rule::apply(value));
    } else {
      store(std::wstring(value));
    }
  }
  /// As above; takes a text over that is stored as given.
  template <std::same_as<std::wstring> Text>
  void operator()(Text&& value) {
    if constexpr (requires { Rule::apply(value); }) {
      store(Rule::apply(value));
    } else {
      store(std::forward<Text>(value));
    }
  }

 private:
  void store(std::wstring value) {
    if constexpr (requires { Rule::accepts(value); }) {
      if (!Rule::accepts(value)) return;
    }
    value_ = std::move(value);
  }

  std::wstring value_;
};

/// A property that the host only reads; `Owner` fills it.
template <class T, class Owner>
class ReadOnly {
 public:
  /// Reads it.
  const T& operator()() const noexcept { return value; }

 private:
  friend Owner;
  T value{};
};

}  // namespace ktpnaips
