#pragma once

#include <concepts>
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

/// Refuses a number outside `Low` to `High`.
template <auto Low, auto High>
struct Within {
  static constexpr bool accepts(auto value) { return value >= Low && value <= High; }
};

}  // namespace rule

/// A readable and writable property.
template <class T, class Rule = rule::AsGiven>
class Property {
 public:
  Property() = default;
  explicit Property(T initial) : value_(std::move(initial)) {}

  const T& operator()() const noexcept { return value_; }

  void operator()(T value) {
    if constexpr (requires { Rule::accepts(value); }) {
      if (!Rule::accepts(value)) return;
    }
    value_ = std::move(value);
  }

 private:
  T value_{};
};

/// A text property.
template <class Rule>
class Property<std::wstring, Rule> {
 public:
  Property() = default;
  explicit Property(std::wstring_view initial) : value_(initial) {}

  const std::wstring& operator()() const noexcept { return value_; }

  void operator()(std::wstring_view value) {
    if constexpr (requires { Rule::accepts(value); }) {
      if (!Rule::accepts(value)) return;
    }
    if constexpr (requires { Rule::apply(value); }) {
      value_ = Rule::apply(value);
    } else {
      value_ = value;
    }
  }

 private:
  std::wstring value_;
};

/// A property that the host only reads; `Owner` fills it.
template <class T, class Owner>
class ReadOnly {
 public:
  const T& operator()() const noexcept { return value; }

 private:
  friend Owner;
  T value{};
};

}  // namespace ktpnaips
