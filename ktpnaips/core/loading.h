#pragma once

#include <ktpnaips/core/date_time.h>
#include <ktpnaips/core/outcome.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/response.h>
#include <ktpnaips/platform/xml.h>

#include <string>
#include <string_view>
#include <utility>

namespace ktpnaips {

/// The namespace of SOAP 1.1 envelopes.
inline constexpr std::wstring_view soapNamespace = L"http://schemas.xmlsoap.org/soap/envelope/";

namespace Utils {

/// Decides whether the response's document is a success, a SOAP fault, a NAIPS error or no SOAP at
/// all, and sets its payload, error flag and text. An unexpected failure is reported and sets
/// nothing: the document is unreadable then.
Outcome loadResponse(AbstractResponse& response);

}  // namespace Utils

/// The text of the child that the path selects; throws fault 91 when there is none.
std::wstring neededText(const xml::Node& from, std::string_view path);

/// The value of the attribute; throws fault 94 when it is absent.
std::wstring neededAttribute(const xml::Node& element, std::wstring_view name);

/// Calls `use` with the text of the child that the path selects, when there is one.
template <class Use>
void withText(const xml::Node& from, std::string_view path, Use&& use) {
  if (const xml::Node node = from.select(path)) use(node.text());
}

/// `into` becomes the text of the child that the path selects, when there is one. `into` is a
/// variable or a property.
template <class Into>
void readText(const xml::Node& from, std::string_view path, Into& into) {
  withText(from, path, [&](std::wstring text) {
    if constexpr (requires { into = text; }) {
      into = std::move(text);
    } else {
      into(std::move(text));
    }
  });
}

/// `into` becomes the date-time that the child's text gives, when there is one.
void readDateTime(const xml::Node& from, std::string_view path, Property<DateTime>& into);

/// True for the two texts that mean true in answers: "true" and "1".
constexpr bool isTrue(std::wstring_view text) {
  return text == L"true" || text == L"1";
}

}  // namespace ktpnaips
