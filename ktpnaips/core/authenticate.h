#pragma once

#include <ktpnaips/core/property.h>
#include <ktpnaips/core/request.h>
#include <ktpnaips/core/response.h>

#include <string>

namespace ktpnaips {

/// What the service knows of an account's holder.
class AuthenticateRsp : public ResponseBase {
 public:
  ReadOnly<std::wstring, AuthenticateRsp> Name;     ///< display name
  ReadOnly<std::wstring, AuthenticateRsp> MOTD;     ///< message of the day
  ReadOnly<std::wstring, AuthenticateRsp> Email;    ///< e-mail address
  ReadOnly<bool, AuthenticateRsp> Scheduling;       ///< whether the account may use scheduling
  ReadOnly<std::wstring, AuthenticateRsp> AvfaxId;  ///< fax identifier

 private:
  void extractData() override;
};

/// Checks an account: the one set on `abstractReq`, or the configured one.
class AuthenticateRqs : public Request<AuthenticateRsp> {
 public:
  AuthenticateRqs();
};

}  // namespace ktpnaips
