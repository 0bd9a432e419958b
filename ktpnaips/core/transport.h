#pragma once

#include <ktpnaips/platform/http.h>

#include <cstdint>
#include <string>
#include <string_view>

/// The HTTP transport: one request document to one URL, and the answer as text.
namespace ktpnaips::winInet {

/// How long a call waits, in milliseconds: for the connection, for progress in sending, and for
/// progress in receiving.
struct TimeLimits {
  std::uint32_t connect = 10'000;
  std::uint32_t send = 30'000;
  std::uint32_t receive = 60'000;
};

/// Those of every call of the process. For tests, which shorten them while no call is under way.
TimeLimits& timeLimits();

/// Splits a URL into scheme ("https:", lower case), host (a port stays part of it) and path ("/"
/// when there is none). A URL without "//" is reported and leaves all three empty.
void splitURL(std::wstring_view url, std::wstring& scheme, std::wstring& host, std::wstring& path);

/// Posts `body` to `url` and waits for the answer. Returns its body alone for a 200 answer of an
/// XML content type, otherwise the raw headers followed by the body, and in place of an answer the
/// text of the step that failed. Never throws. `requestName` is not sent; it is for the observer.
std::string winInetSend(std::wstring_view url, std::wstring_view requestName,
                        std::string_view body);

/// True, with `value` filled, when the answer has the header or status asked for.
bool httpQueryInfo(const http::Exchange& request, http::Info what, std::string& value);

/// The platform's text for an error code, or "(No such error)", followed by the code in decimal
/// and hexadecimal.
std::wstring apiErrorText(std::uint32_t code);

}  // namespace ktpnaips::winInet
