#pragma once

#include <curl/curl.h>

#include <string>

#include <ktpnaips/platform/http.h>

namespace ktpnaips::http {

/// What a server's certificate must satisfy.
struct CertificatePolicy {
  bool ignoreDates = false;
  bool ignoreName = false;
  std::string caFile;  ///< trusted issuers in place of the system's; or empty
};

/// Gives the policy to a handle; it must outlive the handle's transfer. Issuers come from the
/// policy's file, else from SSL_CERT_FILE or SSL_CERT_DIR, else from where the system keeps them.
void applyPolicy(CURL* easy, const CertificatePolicy& policy);

/// Whether OpenSSL objected to a certificate on the calling thread's connection.
bool certificateWasRefused();

/// Keeps why the calling thread's connection was refused, for `errorMessage`; `transportText` is
/// what libcurl says about it.
ErrorCode certificateRefused(const std::string& transportText);

/// How many TLS tickets libcurl had no memory to keep, on the calling thread. A handle that has
/// lost one may not be used again.
unsigned lostTickets();

/// Whether libcurl is built with OpenSSL, which the policy needs.
bool opensslIsThere(CURL* easy);

}  // namespace ktpnaips::http
