#include "tests/support/test_certificates.h"

#include <openssl/asn1.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace ktpnaips::test {

namespace {

struct Free {
  void operator()(X509* certificate) const { X509_free(certificate); }
  void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
  void operator()(X509_EXTENSION* extension) const { X509_EXTENSION_free(extension); }
};
using Certificate = std::unique_ptr<X509, Free>;
using Key = std::unique_ptr<EVP_PKEY, Free>;

void extend(X509* certificate, X509* issuer, int what, const std::string& value) {
  X509V3_CTX context;
  X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
  const std::unique_ptr<X509_EXTENSION, Free> extension(
      X509V3_EXT_conf_nid(nullptr, &context, what, value.c_str()));
  if (!extension) throw std::runtime_error("no such extension: " + value);
  X509_add_ext(certificate, extension.get(), -1);
}

Certificate unsignedCertificate(const std::string& name, EVP_PKEY* key, int fromDays, int toDays) {
  static std::atomic<long> serial = 1000;
  Certificate made(X509_new());
  X509_set_version(made.get(), 2);
  ASN1_INTEGER_set(X509_get_serialNumber(made.get()), ++serial);
  X509_gmtime_adj(X509_getm_notBefore(made.get()), fromDays * 86'400L);
  X509_gmtime_adj(X509_getm_notAfter(made.get()), toDays * 86'400L);
  X509_set_pubkey(made.get(), key);
  const auto* const text = reinterpret_cast<const unsigned char*>(name.c_str());
  X509_NAME_add_entry_by_txt(X509_get_subject_name(made.get()), "CN", MBSTRING_UTF8, text, -1, -1,
                             0);
  return made;
}

void sign(X509* certificate, X509* issuer, EVP_PKEY* issuerKey) {
  X509_set_issuer_name(certificate, X509_get_subject_name(issuer));
  X509_sign(certificate, issuerKey, EVP_sha256());
}

std::filesystem::path newFileName() {
  static std::atomic<int> number = 0;
  return std::filesystem::temp_directory_path() /
         ("ktp-issuer-" + std::to_string(::getpid()) + '-' + std::to_string(++number) + ".pem");
}

void write(X509* certificate, const std::string& file) {
  const std::unique_ptr<FILE, int (*)(FILE*)> out(std::fopen(file.c_str(), "wbe"), std::fclose);
  if (!out) throw std::runtime_error("cannot write " + file);
  PEM_write_X509(out.get(), certificate);
}

}  // namespace

struct CertificateAuthority::Identity {
  Key key{EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256")};
  Certificate certificate;
};

CertificateAuthority::CertificateAuthority()
    : identity_(std::make_unique<Identity>()), file_(newFileName().string()) {
  const std::string name = "Test issuer " + file_;
  identity_->certificate =
      unsignedCertificate(name.substr(0, 60), identity_->key.get(), -3650, 3650);
  X509* const own = identity_->certificate.get();
  extend(own, own, NID_basic_constraints, "critical,CA:TRUE");
  extend(own, own, NID_key_usage, "critical,keyCertSign");
  sign(own, own, identity_->key.get());
  write(own, file_);
}

CertificateAuthority::~CertificateAuthority() {
  std::filesystem::remove(file_);
}

std::shared_ptr<SSL_CTX> CertificateAuthority::server(const CertificateWish& wish) const {
  const Key key(EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256"));
  const Certificate certificate =
      unsignedCertificate(wish.hostName, key.get(), wish.validFromDays, wish.validToDays);
  X509* const own = certificate.get();
  X509* const issuer = wish.selfSigned ? own : identity_->certificate.get();
  extend(own, issuer, NID_subject_alt_name, "DNS:" + wish.hostName);
  extend(own, issuer, NID_ext_key_usage, wish.forClientsOnly ? "clientAuth" : "serverAuth");
  const Key otherKey(EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256"));
  EVP_PKEY* const issuerKey = wish.selfSigned ? key.get() : identity_->key.get();
  sign(own, issuer, wish.brokenSignature ? otherKey.get() : issuerKey);
  std::shared_ptr<SSL_CTX> context(SSL_CTX_new(TLS_server_method()), SSL_CTX_free);
  SSL_CTX_use_certificate(context.get(), own);
  SSL_CTX_use_PrivateKey(context.get(), key.get());
  return context;
}

}  // namespace ktpnaips::test
