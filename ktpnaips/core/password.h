#pragma once

#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>

#include <string>
#include <string_view>

namespace ktpnaips {

/// Whether a password was changed: success is `Error` false.
class ChangePasswordRsp : public ResponseBase {};

/// Changes the password and the e-mail address of an account: the one set on `abstractReq`, or the
/// configured one. The configuration keeps the old password.
class ChangePasswordRqs : public Request<ChangePasswordRsp> {
 public:
  ChangePasswordRqs();

  /// Sent unchanged, also when empty (the default).
  Property<std::wstring> NewPassword;

  /// Sent unchanged, also when empty (the default).
  Property<std::wstring> Email;

 private:
  void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const override;
};

}  // namespace ktpnaips
