#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/error_text.h>
#include <ktpnaips/platform/text.h>

namespace ktpnaips {
namespace {

std::wstring lines(const std::vector<Verdict::Part>& parts) {
  std::wstring text;
  for (const auto& [label, part] : parts) text.append(label).append(part).append(L"\r\n");
  return text;
}

std::wstring linesOf(const Verdict& verdict) {
  switch (verdict.outcome) {
    case Outcome::success:
      return {};
    case Outcome::refused:
    case Outcome::fault:
      return lines(verdict.parts);
    case Outcome::unreadable:
      return L"SOAP Fault: Not a SOAP response\r\n" + verdict.parts.front().text;
    default:
      return L"No response set";
  }
}

}  // namespace

std::wstring errorText(const Verdict& verdict) {
  return Utils::lfToCrLf(linesOf(verdict));
}

std::wstring errorText(const winInet::Answer& answer) {
  std::wstring text = L"SOAP Fault: Unrecognised response.  Details below.\r\n";
  text += text::fromUtf8(answer.headers);
  text += answer.failure ? failureText(*answer.failure) : text::fromUtf8(answer.body);
  return Utils::lfToCrLf(text.append(L"\r\n"));
}

std::wstring failureText(const winInet::StepFailure& failure) {
  return std::wstring(failure.step) + L" call failed: " + failure.message;
}

std::wstring withTrace(std::wstring_view text, std::string_view document) {
  return std::wstring(text) + L"\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n" +
         text::fromUtf8(document);
}

}  // namespace ktpnaips
