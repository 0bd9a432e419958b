#pragma once

#include <ktpnaips/core/response.h>

#include <string>
#include <string_view>

namespace cli {

/// The two parts of a response's error text, as UTF-8 with passwords masked.
struct ErrorText {
  std::string text;   ///< what went wrong
  std::string trace;  ///< the request as it was sent; or empty
};

/// The error text of a response; that of an unanswered one without a response.
ErrorText errorText(const ktpnaips::AbstractResponse* response);

/// One sentence that says what happened and what to do next. `service` is where the request went.
std::string summaryOf(std::string_view errorText, std::string_view service);

/// True when the request was sent, or tried to be, and no verdict of the service came back: nobody
/// knows whether it has done what was asked.
bool mayHaveBeenDone(const ErrorText& error);

/// True when the network, not the service, let the request down.
bool isUnreached(const ErrorText& error);

}  // namespace cli
