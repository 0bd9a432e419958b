#pragma once

#include <memory>
#include <string>

using SSL_CTX = struct ssl_ctx_st;

namespace ktpnaips::test {

/// How a server's certificate comes to be.
struct CertificateWish {
  std::string hostName = "naips.example";
  int validFromDays = -1;  ///< from today
  int validToDays = 30;
  bool forClientsOnly = false;
  bool selfSigned = false;
  bool brokenSignature = false;
};

/// An issuer made for a test, with its certificate in a file of its own.
class CertificateAuthority {
 public:
  CertificateAuthority();
  ~CertificateAuthority();
  CertificateAuthority(const CertificateAuthority&) = delete;
  CertificateAuthority& operator=(const CertificateAuthority&) = delete;

  /// PEM
  [[nodiscard]] const std::string& file() const { return file_; }
  /// The server side of TLS with a certificate of this issuer.
  [[nodiscard]] std::shared_ptr<SSL_CTX> server(const CertificateWish& wish) const;

 private:
  struct Identity;
  std::unique_ptr<Identity> identity_;
  std::string file_;
};

}  // namespace ktpnaips::test
