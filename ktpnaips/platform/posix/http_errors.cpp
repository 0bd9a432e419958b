#include <ktpnaips/platform/posix/http_errors.h>

#include <algorithm>
#include <array>
#include <string>

#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/thread_state.h>

namespace ktpnaips::http {

namespace {

struct Failure {
  ErrorCode code = 0;
  std::string detail;
};

Failure& lastFailure() {
  return platform::threadState<Failure>();
}

struct Message {
  ErrorCode code;
  std::wstring_view text;
};

constexpr std::array messages{
    Message{error::invalidParameter, L"The server name is missing: check the address"},
    Message{error::timeout, L"The operation timed out: check the connection and try again later"},
    Message{error::internalError, L"An internal error occurred in the HTTP library"},
    Message{error::invalidUrl, L"The address is invalid"},
    Message{error::nameNotResolved,
            L"The server name could not be resolved: check the address and the connection"},
    Message{error::incorrectHandleType, L"The request was used before it was opened"},
    Message{error::cannotConnect, L"A connection with the server could not be established"},
    Message{error::connectionAborted, L"The connection with the server was closed unexpectedly"},
    Message{error::connectionReset, L"The connection with the server was reset"},
    Message{error::certDateInvalid, L"The server's certificate is expired or not yet valid"},
    Message{error::certNameInvalid, L"The server's certificate was issued to another host name"},
    Message{error::invalidCa, L"The issuer of the server's certificate is unknown or not trusted"},
    Message{error::invalidServerResponse, L"The server returned an invalid response"},
    Message{error::secureChannelError, L"A secure channel to the server could not be set up"},
    Message{error::secureFailure, L"The server's certificate could not be verified"},
};

}  // namespace

namespace error {

ErrorCode fail(ErrorCode code, std::string_view detail) {
  lastFailure().code = code;
  lastFailure().detail = detail;
  return code;
}

void forgetFailure() {
  fail(0, {});
}

}  // namespace error

std::wstring errorMessage(ErrorCode code) {
  const auto* const known = std::find_if(messages.begin(), messages.end(),
                                         [code](const Message& each) { return each.code == code; });
  if (known == messages.end()) return {};
  std::wstring text{known->text};
  const Failure& last = lastFailure();
  if (last.code == code && !last.detail.empty())
    text.append(L" (").append(text::fromUtf8(last.detail)).append(L")");
  return text.append(L".\r\n");
}

}  // namespace ktpnaips::http
