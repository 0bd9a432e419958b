#include "cli/error_text.h"

#include <ktpnaips/platform/text.h>

#include <array>

namespace cli {
namespace {

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
    Summary{" call failed: ",
            "The service could not be reached; check the network, --host and --connect-to."},
    Summary{"HTTP/1.", "The server answered, but not as NAIPS does; its answer follows."},
    Summary{"SOAP Fault: Unrecognised response.",
            "The answer cannot be read; it may have been cut off. Try again."},
};

}  // namespace

ErrorText errorText(const ktpnaips::AbstractResponse* response) {
  const std::wstring whole =
      response != nullptr ? response->ErrorText() : std::wstring(L"No response set");
  const auto end = whole.rfind(traceStart);
  if (end == std::wstring::npos) return {ktpnaips::text::toUtf8(whole), {}};
  const std::wstring_view view(whole);
  return {ktpnaips::text::toUtf8(view.substr(0, end)),
          ktpnaips::text::toUtf8(view.substr(end + traceStart.size()))};
}

std::string summaryOf(std::string_view errorText) {
  for (const auto& [sign, sentence] : summaries) {
    if (errorText.find(sign) != std::string_view::npos) return std::string(sentence);
  }
  return "There is no usable answer.";
}

}  // namespace cli
