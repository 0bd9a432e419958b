#pragma once

#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/core/response.h>

#include <string>
#include <string_view>

/// What a person is told of a request that failed, as UTF-8 without passwords.
namespace cli {

/// Where a request went, and what kind of answer it had.
struct Addressed {
  std::string service = "NAIPS";  ///< as a person knows it
  std::string status;             ///< of HTTP, as in "200"; empty without an answer
  bool isXml = false;             ///< what the answer says that it is
};

/// What became of a request; `none` without a response.
ktpnaips::Outcome outcomeOf(const ktpnaips::ResponseBase* response);

/// `ErrorText` without the request; that of an unanswered response without one.
std::string errorText(const ktpnaips::ResponseBase* response);

/// `ErrorText` as it stands, with the request.
std::string tracedErrorText(const ktpnaips::ResponseBase* response);

/// One sentence that says what happened and what to do next.
std::string summaryOf(const ktpnaips::ResponseBase* response, const Addressed& to);

}  // namespace cli
