#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <array>

namespace ktpnaips {
namespace {

struct Verdict {
  xml::Node payload;
  bool error = true;
  std::wstring text;
};

struct FaultPart {
  std::string_view path;
  std::wstring_view label;
};

using FaultForm = std::array<FaultPart, 4>;

constexpr FaultForm soap11Fault{{{"faultcode", L"SOAP Fault Code: "},
                                 {"faultstring", L"SOAP Fault String: "},
                                 {"faultactor", L"Actor: "},
                                 {"detail", L"Detail: "}}};

std::wstring selectionNamespaces() {
  std::wstring declarations = L"xmlns:soap='";
  declarations += soapNamespace;
  declarations += L"'  xmlns:naips='";
  declarations += Deployment::current().schemaNamespace;
  declarations += L'\'';
  return declarations;
}

std::wstring faultText(const xml::Node& fault) {
  std::wstring text;
  for (const auto& [path, label] : soap11Fault) {
    withText(fault, path, [&, label = label](const std::wstring& part) {
      text += label;
      text += part;
      text += L"\r\n";
    });
  }
  return text;
}

std::wstring refusalText(const xml::Node& payload, const std::wstring& status) {
  std::wstring text = L"NAIPS Error: " + status + L"\r\n";
  withText(payload, "//naips:info",
           [&](const std::wstring& info) { text += L"Info: " + info + L"\r\n"; });
  return text;
}

Verdict judge(const xml::Document& document) {
  if (!document) return {{}, true, L"No response set"};
  document.bindPrefixes(selectionNamespaces());
  const xml::Node root = document.documentElement();
  const xml::Node body = root.select("//soap:Body");
  if (!body) return {{}, true, L"SOAP Fault: Not a SOAP response\r\n" + root.text()};
  const xml::Node payload = body.firstChild();
  if (const xml::Node fault = body.select("soap:Fault")) {
    return {payload, true, faultText(fault)};
  }
  const std::wstring status = neededAttribute(payload, L"status");
  if (status != L"SUCCESS") return {payload, true, refusalText(payload, status)};
  return {payload, false, L""};
}

}  // namespace

void Utils::loadResponse(AbstractResponse& response) {
  trapped(inModule(L"loadResponse", L"Utils"), [&] {
    const Verdict verdict = judge(response.ResponseDoc());
    const std::wstring text = lfToCrLf(verdict.text);
    response.Payload(verdict.payload);
    response.Error(verdict.error);
    response.ErrorText(text);
  });
}

std::wstring neededText(const xml::Node& from, std::string_view path) {
  return from.select(path).text();
}

void readDateTime(const xml::Node& from, std::string_view path, Property<DateTime>& into) {
  withText(from, path,
           [&](const std::wstring& text) { into(Utilities::convertISODateTime(text)); });
}

std::wstring neededAttribute(const xml::Node& element, std::wstring_view name) {
  auto value = element.attribute(name);
  if (!value) throw RuntimeFault(fault::invalidUseOfNull);
  return *std::move(value);
}

}  // namespace ktpnaips
