#include "cli/error_text.h"

#include <ktpnaips/core/masking.h>
#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace cli {
namespace {

constexpr std::string_view networkSign = " call failed: ";
constexpr std::wstring_view traceStart = L"\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n";

struct Summary {
  std::string_view sign;
  std::string_view sentence;
};

constexpr std::string_view faulty =
    "{} could not process the request and answered with a fault, which follows.";
constexpr std::string_view untrusted =
    "The certificate of {} is not trusted; check --host, and --ca-file if its issuer is your own.";
constexpr std::string_view loggedOut =
    "A proxy in front of {} wants an account; call naips at a terminal to be asked for it.";

// The first sign found in the text decides. {} stands for where the request went.
constexpr std::array summaries{
    Summary{"NAIPS Error:", "{} refused the request; it says why below."},
    Summary{"SOAP Fault Code:", faulty},
    Summary{"SOAP Fault String:", faulty},
    Summary{"SOAP Fault: Not a SOAP response",
            "What {} answered is XML but not from NAIPS; check --host and --mode."},
    Summary{"Dec: 12002\t", "{} did not answer in time; check the network, or try again later."},
    Summary{"Dec: 12005\t", "The address of {} cannot be used; check --host and --connect-to."},
    Summary{"Dec: 12007\t", "The host of {} is not known; check --host and the network."},
    Summary{"Dec: 12045\t", untrusted},
    Summary{"Dec: 12175\t", untrusted},
    Summary{networkSign, "{} could not be reached; check the network, --host and --connect-to."},
    Summary{"HTTP/1.1 407", loggedOut},
    Summary{"HTTP/1.0 407", loggedOut},
    Summary{"HTTP/1.", "{} answered, but not as NAIPS does; check --host. Its answer follows."},
    Summary{"SOAP Fault: Unrecognised response.",
            "The answer of {} cannot be read; it may have been cut off. Try again."},
};

// How the text starts when the service itself has answered with a refusal or a fault.
constexpr std::array<std::string_view, 5> verdicts{
    "NAIPS Error:", "SOAP Fault Code:", "SOAP Fault String:", "Actor:", "Detail:"};

/// As UTF-8. An answer may repeat the request, so passwords are masked in both parts.
std::string shown(std::wstring_view text) {
  return ktpnaips::withMaskedPasswords(ktpnaips::text::toUtf8(text));
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

std::string summaryOf(std::string_view errorText, std::string_view service) {
  for (const auto& [sign, sentence] : summaries) {
    if (errorText.find(sign) != std::string_view::npos) {
      return fmt::format(fmt::runtime(sentence), service);
    }
  }
  return fmt::format("There is no usable answer from {}.", service);
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

}  // namespace cli
