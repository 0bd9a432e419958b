#include "cli/error_text.h"

#include "cli/masking.h"

#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace cli {
namespace {

constexpr std::string_view networkSign = " call failed: ";
constexpr std::wstring_view traceStart = L"\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n";

struct Summary {
  std::string_view sign;
  std::string_view sentence;
};

// The first sign found in the text decides.
constexpr std::array summaries{
    Summary{"NAIPS Error:", "The service refused the request; it says why below."},
    Summary{"SOAP Fault Code:", "The service could not process the request and answered a fault."},
    Summary{"SOAP Fault String:",
            "The service could not process the request and answered a fault."},
    Summary{"SOAP Fault: Not a SOAP response",
            "The answer is XML but not from NAIPS; check --host and --mode."},
    Summary{networkSign,
            "The service could not be reached; check the network, --host and --connect-to."},
    Summary{"HTTP/1.", "The server answered, but not as NAIPS does; its answer follows."},
    Summary{"SOAP Fault: Unrecognised response.",
            "The answer cannot be read; it may have been cut off. Try again."},
};

// How the text starts when the service itself has answered with a refusal or a fault.
constexpr std::array<std::string_view, 5> verdicts{
    "NAIPS Error:", "SOAP Fault Code:", "SOAP Fault String:", "Actor:", "Detail:"};

/// As UTF-8. An answer may repeat the request, so passwords are masked in both parts.
std::string shown(std::wstring_view text) {
  return masked(ktpnaips::text::toUtf8(text));
}

}  // namespace

ErrorText errorText(const ktpnaips::AbstractResponse* response) {
  const std::wstring whole =
      response != nullptr ? response->ErrorText() : std::wstring(L"No response set");
  const auto end = whole.rfind(traceStart);
  if (end == std::wstring::npos) return {shown(whole), {}};
  const std::wstring_view view(whole);
  return {shown(view.substr(0, end)), shown(view.substr(end + traceStart.size()))};
}

std::string summaryOf(std::string_view errorText) {
  for (const auto& [sign, sentence] : summaries) {
    if (errorText.find(sign) != std::string_view::npos) return std::string(sentence);
  }
  return "There is no usable answer.";
}

bool mayHaveBeenDone(const ErrorText& error) {
  const bool wasSent = !error.trace.empty();
  const bool hasVerdict = error.text.empty() || std::ranges::any_of(verdicts, [&](auto start) {
                            return error.text.starts_with(start);
                          });
  return wasSent && !hasVerdict;
}

bool isUnreached(const ErrorText& error) {
  return error.text.find(networkSign) != std::string::npos;
}

void complain(std::string_view text) {
  fmt::print(stderr, "{}\n", text);
}

}  // namespace cli
