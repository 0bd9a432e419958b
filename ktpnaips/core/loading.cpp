#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/error_text.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <array>
#include <utility>
#include <vector>

namespace ktpnaips {
namespace {

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

std::vector<Verdict::Part> partsOf(const xml::Node& fault) {
  std::vector<Verdict::Part> parts;
  for (const auto& [path, label] : soap11Fault) {
    withText(fault, path, [&, start = label](std::wstring text) {
      parts.push_back({start, std::move(text)});
    });
  }
  return parts;
}

std::vector<Verdict::Part> partsOf(const xml::Node& refusal, std::wstring status) {
  std::vector<Verdict::Part> parts;
  parts.push_back({L"NAIPS Error: ", std::move(status)});
  withText(refusal, "//naips:info", [&](std::wstring info) {
    parts.push_back({L"Info: ", std::move(info)});
  });
  return parts;
}

Verdict judge(const xml::Document& document) {
  if (!document) return {};
  document.bindPrefixes(selectionNamespaces());
  const xml::Node root = document.documentElement();
  const xml::Node body = root.select("//soap:Body");
  if (!body) return {Outcome::unreadable, {}, {{L"", root.text()}}};
  const xml::Node payload = body.firstChild();
  if (const xml::Node fault = body.select("soap:Fault")) {
    return {Outcome::fault, payload, partsOf(fault)};
  }
  std::wstring status = neededAttribute(payload, L"status");
  if (status == L"SUCCESS") return {Outcome::success, payload, {}};
  return {Outcome::refused, payload, partsOf(payload, std::move(status))};
}

}  // namespace

Outcome Utils::loadResponse(AbstractResponse& response) {
  Outcome outcome = Outcome::unreadable;
  trapped(inModule(L"loadResponse", L"Utils"), [&] {
    const Verdict verdict = judge(response.ResponseDoc());
    const std::wstring text = errorText(verdict);
    response.Payload(verdict.payload);
    response.Error(verdict.outcome != Outcome::success);
    outcome = verdict.outcome;
    response.ErrorText(text);
  });
  return outcome;
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
