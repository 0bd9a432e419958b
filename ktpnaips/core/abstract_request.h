#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/property.h>

#include <string>
#include <string_view>

namespace ktpnaips {

/// The common part of every request: account, scope, source and the name of its element.
class AbstractRequest : public IAppendable {
 public:
  /// With this name of its element.
  explicit AbstractRequest(std::wstring_view elementName = {});

  /// An account of the request's own; empty (the default) for the configured one with its
  /// password. Read back upper-cased and trimmed.
  std::wstring User() const;
  void User(std::wstring_view value);

  /// The password to `User`, unchanged; without effect while `User` is empty. Default "".
  Property<std::wstring> Password;

  /// Sent exactly as given; left out when empty (the default).
  Property<std::wstring> Scope;

  /// Identifies the client program to the service. Default "orvalix".
  Property<std::wstring> Source{L"orvalix"};

  /// Appends the request element with its account attributes.
  void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const override;

  /// The local name of the request element, trimmed; an empty one becomes "abstractrequest".
  std::wstring ElementName() const;
  void ElementName(std::wstring_view value);

 private:
  std::wstring user_;
  std::wstring elementName_;
};

}  // namespace ktpnaips
