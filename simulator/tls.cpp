#include "simulator/tls.h"

#include <openssl/bio.h>
#include <openssl/bn.h>
#include <openssl/ec.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <array>
#include <chrono>
#include <ctime>
#include <memory>
#include <stdexcept>

#include "simulator/state_folder.h"

namespace sim {
namespace {

template <auto freeFunction>
struct Freed {
  template <class T>
  void operator()(T* object) const {
    freeFunction(object);
  }
};

using Key = std::unique_ptr<EVP_PKEY, Freed<EVP_PKEY_free>>;
using X509Ptr = std::unique_ptr<X509, Freed<X509_free>>;
using Bio = std::unique_ptr<BIO, Freed<BIO_free_all>>;
using Signature = std::unique_ptr<ECDSA_SIG, Freed<ECDSA_SIG_free>>;
using Extension = std::unique_ptr<X509_EXTENSION, Freed<X509_EXTENSION_free>>;

constexpr std::chrono::days year{365};
constexpr const char* authorityFile = "authority.pem";

void require(bool ok, const char* what) {
  if (!ok) {
    throw std::runtime_error(std::string("OpenSSL cannot ") + what + ": " +
                             ERR_error_string(ERR_get_error(), nullptr));
  }
}

struct Validity {
  std::chrono::seconds from;  // from now
  std::chrono::seconds till;
};

Validity validityOf(Certificate kind) {
  switch (kind) {
    case Certificate::expired:
      return {-2 * year, -year};
    case Certificate::notYetValid:
      return {year, 2 * year};
    default:
      return {std::chrono::days(-1), year};
  }
}

std::string read(BIO* bio) {
  char* data = nullptr;
  const long length = BIO_get_mem_data(bio, &data);
  return {data, static_cast<std::size_t>(length)};
}

KeyPair toPem(X509* certificate, EVP_PKEY* key) {
  const Bio certificateText(BIO_new(BIO_s_mem()));
  const Bio keyText(BIO_new(BIO_s_mem()));
  require(PEM_write_bio_X509(certificateText.get(), certificate) == 1, "write a certificate");
  require(PEM_write_bio_PrivateKey(keyText.get(), key, nullptr, nullptr, 0, nullptr, nullptr) == 1,
          "write a key");
  return {read(certificateText.get()), read(keyText.get())};
}

Bio reader(const std::string& text) {
  return Bio(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())));
}

X509Ptr readCertificate(const std::string& text) {
  return X509Ptr(PEM_read_bio_X509(reader(text).get(), nullptr, nullptr, nullptr));
}

Key readKey(const std::string& text) {
  return Key(PEM_read_bio_PrivateKey(reader(text).get(), nullptr, nullptr, nullptr));
}

void setSerial(X509* certificate) {
  std::array<unsigned char, 16> bytes{};
  require(RAND_bytes(bytes.data(), static_cast<int>(bytes.size())) == 1, "make random numbers");
  bytes[0] = static_cast<unsigned char>((bytes[0] & 0x3F) | 0x40);  // positive, full length
  const std::unique_ptr<BIGNUM, Freed<BN_free>> number(
      BN_bin2bn(bytes.data(), static_cast<int>(bytes.size()), nullptr));
  BN_to_ASN1_INTEGER(number.get(), X509_get_serialNumber(certificate));
}

void setName(X509_NAME* name, const char* commonName) {
  const auto add = [&](const char* field, const char* text) {
    X509_NAME_add_entry_by_txt(name, field, MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char*>(text), -1, -1, 0);
  };
  add("O", "naips-simulator");
  add("CN", commonName);
}

void addExtension(X509* certificate, X509* issuer, int nid, const std::string& value) {
  X509V3_CTX context;
  X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
  const Extension extension(X509V3_EXT_conf_nid(nullptr, &context, nid, value.c_str()));
  require(extension != nullptr, "make a certificate extension");
  X509_add_ext(certificate, extension.get(), -1);
}

X509Ptr newCertificate(EVP_PKEY* key, const char* commonName, Validity validity) {
  X509Ptr certificate(X509_new());
  X509_set_version(certificate.get(), X509_VERSION_3);
  setSerial(certificate.get());
  setName(X509_get_subject_name(certificate.get()), commonName);
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), validity.from.count());
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), validity.till.count());
  X509_set_pubkey(certificate.get(), key);
  return certificate;
}

// Whether both numbers of the signature fill their 32 bytes: Wine takes one with a shorter number
// for a wrong one.
bool isFull(const X509* certificate) {
  const ASN1_BIT_STRING* bits = nullptr;
  X509_get0_signature(&bits, nullptr, certificate);
  const unsigned char* next = bits->data;
  const Signature signature(d2i_ECDSA_SIG(nullptr, &next, bits->length));
  require(signature != nullptr, "read its own signature");
  constexpr int bytes = 32;
  return BN_num_bytes(ECDSA_SIG_get0_r(signature.get())) == bytes &&
         BN_num_bytes(ECDSA_SIG_get0_s(signature.get())) == bytes;
}

void sign(X509* certificate, EVP_PKEY* issuerKey) {
  do {  // each signature is another
    require(X509_sign(certificate, issuerKey, EVP_sha256()) > 0, "sign a certificate");
  } while (!isFull(certificate));
}

Key newKey() {
  Key key(EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256"));
  require(key != nullptr, "make a key");
  return key;
}

KeyPair newAuthority(const char* commonName) {
  const Key key = newKey();
  const X509Ptr certificate =
      newCertificate(key.get(), commonName, {std::chrono::days(-1), 10 * year});
  X509* self = certificate.get();
  X509_set_issuer_name(self, X509_get_subject_name(self));
  addExtension(self, self, NID_basic_constraints, "critical,CA:TRUE,pathlen:0");
  addExtension(self, self, NID_key_usage, "critical,keyCertSign,cRLSign");
  addExtension(self, self, NID_subject_key_identifier, "hash");
  sign(self, key.get());
  return toPem(self, key.get());
}

bool isUsable(const std::string& pem) {
  const X509Ptr certificate = readCertificate(pem);
  const Key key = readKey(pem);
  ERR_clear_error();
  if (!certificate || !key || X509_check_private_key(certificate.get(), key.get()) != 1) {
    return false;
  }
  const auto margin = std::chrono::system_clock::now() + year;
  std::time_t latest = std::chrono::system_clock::to_time_t(margin);
  return X509_cmp_time(X509_get0_notAfter(certificate.get()), &latest) > 0;
}

std::string subjectNames(Certificate kind, std::span<const std::string> hostNames) {
  if (kind == Certificate::wrongName) {
    return "DNS:elsewhere.example";
  }
  std::string names = "DNS:localhost,IP:127.0.0.1";
  for (const std::string& name : hostNames) {
    names.append(",DNS:").append(name);
  }
  return names;
}

}  // namespace

KeyPair authorityIn(const std::filesystem::path& folder) {
  StateFolder state(folder);
  std::string pem = state.read(authorityFile);
  if (!isUsable(pem)) {
    const KeyPair made = newAuthority("Certificate authority of the simulated service");
    // Of two that start at once the first to store its authority wins.
    pem = state.storeSecret(authorityFile, made.certificate + made.key, isUsable);
  }
  const KeyPair authority = toPem(readCertificate(pem).get(), readKey(pem).get());
  state.publish(authorityCertificateFile(folder).filename(), authority.certificate);
  return authority;
}

std::filesystem::path authorityCertificateFile(const std::filesystem::path& folder) {
  return folder / "ca.pem";
}

KeyPair issue(const KeyPair& authority, Certificate kind, std::span<const std::string> hostNames) {
  const KeyPair issuerPem =
      kind == Certificate::unknownIssuer ? newAuthority("An authority nobody knows") : authority;
  const X509Ptr issuer = readCertificate(issuerPem.certificate);
  const Key issuerKey = readKey(issuerPem.key);
  const Key key = newKey();
  const X509Ptr certificate =
      newCertificate(key.get(), kind == Certificate::wrongName ? "elsewhere.example" : "localhost",
                     validityOf(kind));
  X509* subject = certificate.get();
  X509_set_issuer_name(subject, X509_get_subject_name(issuer.get()));
  addExtension(subject, issuer.get(), NID_basic_constraints, "critical,CA:FALSE");
  addExtension(subject, issuer.get(), NID_key_usage, "critical,digitalSignature");
  addExtension(subject, issuer.get(), NID_ext_key_usage, "serverAuth");
  addExtension(subject, issuer.get(), NID_subject_alt_name, subjectNames(kind, hostNames));
  addExtension(subject, issuer.get(), NID_authority_key_identifier, "keyid:always");
  sign(subject, issuerKey.get());
  return toPem(subject, key.get());
}

}  // namespace sim
