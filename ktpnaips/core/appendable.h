#pragma once

#include <ktpnaips/platform/xml.h>

#include <string_view>

namespace ktpnaips {

/// A request, or a part of one, that writes itself into the request document.
class IAppendable {
 public:
  virtual ~IAppendable() = default;

  /// Appends the part's own elements, in `namespaceUri`, as the last children of `parent`.
  virtual void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const = 0;

 protected:
  IAppendable() = default;
  IAppendable(const IAppendable&) = default;
  IAppendable& operator=(const IAppendable&) = default;
};

}  // namespace ktpnaips
