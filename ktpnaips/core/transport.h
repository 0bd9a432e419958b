#pragma once

#include <ktpnaips/core/outcome.h>
#include <ktpnaips/platform/http.h>

#include <cstdint>
#include <optional>
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

/// A step of an exchange that failed.
struct StepFailure {
  std::wstring_view step;  ///< as the Windows Internet API calls it
  http::ErrorCode code = 0;
  std::wstring message;  ///< what `apiErrorText` said then
};

/// What came of a post.
struct Answer {
  bool hasSent = false;                ///< as in `http::Exchange`
  std::optional<StepFailure> failure;  ///< in place of an answer, or of its body
  std::string status;                  ///< as in "200"; empty when nothing answered
  std::string contentType;
  std::string headers;  ///< raw; empty for a 200 answer of an XML content type
  std::string body;
};

/// An answer that is more than can be read, for this reason.
StepFailure tooLarge(std::wstring_view reason);

/// Posts `body` to `url` and waits for the answer. Never throws: after an unexpected failure, which
/// is reported, the answer is as far as it came. `requestName` and `effect` are for observers.
Answer winInetSend(std::wstring_view url, std::wstring_view requestName, std::string_view body,
                   Effect effect = Effect::reads);

/// True, with `value` filled, when the answer has the header or status asked for.
bool httpQueryInfo(const http::Exchange& request, http::Info what, std::string& value);

/// The platform's text for an error code, or "(No such error)", followed by the code in decimal
/// and hexadecimal.
std::wstring apiErrorText(std::uint32_t code);

}  // namespace ktpnaips::winInet
