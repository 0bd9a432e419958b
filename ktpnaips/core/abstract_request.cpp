#include <ktpnaips/core/abstract_request.h>
#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/globals.h>
#include <ktpnaips/core/xml_building.h>

namespace ktpnaips {

using modBrevank::addAttribute;
using modBrevank::addElement;

AbstractRequest::AbstractRequest(std::wstring_view elementName) {
  ElementName(elementName);
}

std::wstring AbstractRequest::User() const {
  return Utils::cleanString(user_);
}

void AbstractRequest::User(std::wstring_view value) {
  user_ = value;
}

std::wstring AbstractRequest::ElementName() const {
  return elementName_;
}

void AbstractRequest::ElementName(std::wstring_view value) {
  const std::wstring_view name = trimSpaces(value);
  elementName_ = name.empty() ? L"abstractrequest" : name;
}

void AbstractRequest::appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const {
  const Globals::Settings& settings = Globals::settings();
  const bool hasOwnAccount = !user_.empty();
  const std::wstring& user = hasOwnAccount ? user_ : settings.userName;
  const std::wstring& password = hasOwnAccount ? Password() : settings.password;

  const xml::Node request = addElement(parent, elementName_, namespaceUri);
  addAttribute(request, L"source", namespaceUri, Source());
  addAttribute(request, L"requestor", namespaceUri, Utils::cleanString(user));
  addAttribute(request, L"password", namespaceUri, password);
  if (!Scope().empty()) addAttribute(request, L"scope", namespaceUri, Scope());
}

}  // namespace ktpnaips
