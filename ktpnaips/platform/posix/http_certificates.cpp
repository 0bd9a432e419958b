#include <ktpnaips/platform/posix/http_certificates.h>

#include <openssl/ssl.h>
#include <openssl/x509.h>
#include <openssl/x509_vfy.h>

#include <array>
#include <cstdlib>

#include <ktpnaips/platform/posix/http_errors.h>
#include <ktpnaips/platform/posix/http_option.h>

namespace ktpnaips::http {

namespace {

using KeepTicket = int (*)(SSL*, SSL_SESSION*);

/// What OpenSSL found out, on this thread. Plain data: it is written below C frames.
struct Finding {
  int error = X509_V_OK;  ///< what it objected to
  std::array<char, 200> subject{};
  KeepTicket keepTicket = nullptr;  ///< libcurl's own
  bool hasLostTicket = false;
};

thread_local Finding finding;
thread_local unsigned ticketsLost = 0;

int noteFinding(int accepted, X509_STORE_CTX* context) {
  if (accepted != 0) return accepted;
  finding.error = X509_STORE_CTX_get_error(context);
  X509* const certificate = X509_STORE_CTX_get_current_cert(context);
  if (certificate != nullptr)
    X509_NAME_oneline(X509_get_subject_name(certificate), finding.subject.data(),
                      static_cast<int>(finding.subject.size()));
  return accepted;
}

// A libcurl of these releases that has no memory to keep a ticket goes on holding a name that it
// has freed, and frees it again with the next ticket.
bool losesTickets() {
  return curl_version_info(CURLVERSION_NOW)->version_num < 0x080800;
}

int keepTicketUnlessOneWasLost(SSL* ssl, SSL_SESSION* ticket) {
  if (finding.hasLostTicket) return 0;
  const int kept = finding.keepTicket(ssl, ticket);
  if (kept != 0) return kept;
  finding.hasLostTicket = true;
  ++ticketsLost;
  return 0;
}

CURLcode prepareContext(CURL*, void* sslContext, void* policy) {
  auto* const context = static_cast<SSL_CTX*>(sslContext);
  finding.keepTicket = losesTickets() ? SSL_CTX_sess_get_new_cb(context) : nullptr;
  if (finding.keepTicket != nullptr) SSL_CTX_sess_set_new_cb(context, keepTicketUnlessOneWasLost);
  if (static_cast<const CertificatePolicy*>(policy)->ignoreDates)
    X509_VERIFY_PARAM_set_flags(SSL_CTX_get0_param(context), X509_V_FLAG_NO_CHECK_TIME);
  SSL_CTX_set_verify(context, SSL_VERIFY_PEER, noteFinding);
  return CURLE_OK;
}

const char* environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr && *value != '\0' ? value : nullptr;
}

// Also so that libcurl keeps the issuers that it has loaded, which it does without a folder alone.
void trustOnly(CURL* easy, const char* file, const char* folder) {
  setOption(easy, CURLOPT_CAINFO, file);
  setOption(easy, CURLOPT_PROXY_CAINFO, file);
  setOption(easy, CURLOPT_CAPATH, folder);
  setOption(easy, CURLOPT_PROXY_CAPATH, folder);
}

const char* defaultFile(CURL* easy) {
  const char* file = nullptr;
  return curl_easy_getinfo(easy, CURLINFO_CAINFO, &file) == CURLE_OK ? file : nullptr;
}

void setIssuers(CURL* easy, const std::string& caFile) {
  if (!caFile.empty()) return trustOnly(easy, caFile.c_str(), nullptr);
  if (const char* const file = environment("SSL_CERT_FILE")) return trustOnly(easy, file, nullptr);
  if (const char* const folder = environment("SSL_CERT_DIR"))
    return trustOnly(easy, nullptr, folder);
  if (const char* const file = defaultFile(easy)) trustOnly(easy, file, nullptr);
}

ErrorCode codeOfFinding() {
  switch (finding.error) {
    case X509_V_OK:
      return error::certNameInvalid;
    case X509_V_ERR_CERT_HAS_EXPIRED:
    case X509_V_ERR_CERT_NOT_YET_VALID:
      return error::certDateInvalid;
    case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT:
    case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY:
    case X509_V_ERR_UNABLE_TO_VERIFY_LEAF_SIGNATURE:
    case X509_V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT:
    case X509_V_ERR_SELF_SIGNED_CERT_IN_CHAIN:
    case X509_V_ERR_CERT_UNTRUSTED:
    case X509_V_ERR_CERT_REJECTED:
    case X509_V_ERR_INVALID_CA:
      return error::invalidCa;
    default:
      return error::secureFailure;
  }
}

}  // namespace

void applyPolicy(CURL* easy, const CertificatePolicy& policy) {
  finding = Finding();
  setIssuers(easy, policy.caFile);
  setOption(easy, CURLOPT_SSL_VERIFYPEER, 1L);
  setOption(easy, CURLOPT_SSL_VERIFYHOST, policy.ignoreName ? 0L : 2L);
  setOption(easy, CURLOPT_SSL_CTX_FUNCTION, &prepareContext);
  setOption(easy, CURLOPT_SSL_CTX_DATA, &policy);
}

bool certificateWasRefused() {
  return finding.error != X509_V_OK;
}

ErrorCode certificateRefused(const std::string& transportText) {
  if (!certificateWasRefused()) return error::fail(codeOfFinding(), transportText);
  return error::fail(codeOfFinding(), std::string(finding.subject.data()) + ": " +
                                          X509_verify_cert_error_string(finding.error));
}

unsigned lostTickets() {
  return ticketsLost;
}

bool opensslIsThere(CURL* easy) {
  const curl_tlssessioninfo* session = nullptr;
  return curl_easy_getinfo(easy, CURLINFO_TLS_SSL_PTR, &session) == CURLE_OK &&
         session != nullptr && session->backend == CURLSSLBACKEND_OPENSSL;
}

}  // namespace ktpnaips::http
