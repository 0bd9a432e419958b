#pragma once

#include <ktpnaips/core/outcome.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/platform/xml.h>

#include <string>
#include <string_view>
#include <vector>

/// The texts of `ErrorText`, made of what the transport and the answer's document say.
namespace ktpnaips {

/// What a document says about a request.
struct Verdict {
  /// A part of a refusal or a fault, and what stands in front of it in the text.
  struct Part {
    std::wstring_view label;
    std::wstring text;
  };

  Outcome outcome = Outcome::none;
  xml::Node payload;
  std::vector<Part> parts;  ///< of an unreadable document one without a label: all its text
};

/// The text of a verdict, empty for a success.
std::wstring errorText(const Verdict& verdict);

/// The text of an answer that is no XML document, or of what came in place of one.
std::wstring errorText(const winInet::Answer& answer);

/// The text of a step that failed.
std::wstring failureText(const winInet::StepFailure& failure);

/// A text with the request that it is about behind it.
std::wstring withTrace(std::wstring_view text, std::string_view document);

}  // namespace ktpnaips
