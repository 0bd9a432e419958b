#pragma once

#include <ktpnaips/platform/cancellation.h>

#include <string_view>
#include <utility>

namespace ktpnaips {

/// A procedure as failure reports name it. The words are fixed for each handler and do not always
/// match the class that holds it.
struct Procedure {
  std::wstring_view name;
  std::wstring_view module;
  bool isClass = true;
};

/// A procedure of a class module.
consteval Procedure inClass(std::wstring_view name, std::wstring_view module) {
  return {name, module, true};
}

/// A procedure of a standard module.
consteval Procedure inModule(std::wstring_view name, std::wstring_view module) {
  return {name, module, false};
}

/// The `appendTo` of a class, under the name that its reports give it.
consteval Procedure appendToOf(std::wstring_view module) {
  return {L"IAppendable_appendTo", module, true};
}

/// Reports the exception in flight as an unexpected failure of `procedure`.
void reportFailure(const Procedure& procedure) noexcept;

/// Runs `body`; whatever it throws is reported and ends `procedure`, not the caller. A thread that
/// is cancelled meanwhile ends behind it.
template <class Body>
void trapped(const Procedure& procedure, Body&& body) noexcept {
  const platform::WithoutCancellation whole;
  try {
    std::forward<Body>(body)();
  } catch (...) {
    reportFailure(procedure);
  }
}

/// As above, for a procedure with a result: `body` fills it, and what it held is returned.
template <class Result, class Body>
Result trapped(const Procedure& procedure, Body&& body) {
  Result result{};
  trapped(procedure, [&] { std::forward<Body>(body)(result); });
  return result;
}

}  // namespace ktpnaips
