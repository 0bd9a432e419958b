#pragma once

#include <windows.h>

#include <string_view>
#include <typeindex>
#include <utility>

namespace ktpnaips::component {

/// The result of a call that the exception in flight ended; hosts find its text as error
/// information. `source` names the object to them.
HRESULT failure(std::wstring_view source) noexcept;
/// As above for a call of an object of one of the library's classes.
HRESULT failure(std::type_index source) noexcept;

/// Runs the body of a call; no exception leaves it. `Source` is one that `failure` takes.
template <class Source, class Body>
HRESULT attempt(const Source& source, Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
    return S_OK;
  } catch (...) {
    return failure(source);
  }
}

/// Throws the fault of a failed call of a host's own object, under the number that it raised and
/// with the text that it left as error information.
void checkHost(HRESULT result);
/// Throws the fault of a host's own object with a text that is at hand.
[[noreturn]] void throwHostFailure(HRESULT result, std::wstring_view text);

}  // namespace ktpnaips::component
