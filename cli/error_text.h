#pragma once

#include <ktpnaips/core/response.h>

#include <string>
#include <string_view>

namespace cli {

/// The two parts of a response's error text, as UTF-8.
struct ErrorText {
  std::string text;   ///< what went wrong
  std::string trace;  ///< the request as it was sent, password included; or empty
};

/// The error text of a response; that of an unanswered one without a response.
ErrorText errorText(const ktpnaips::AbstractResponse* response);

/// One sentence that says what happened and what to do next.
std::string summaryOf(std::string_view errorText);

}  // namespace cli
