#include <windows.h>

#include <wincrypt.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "tests/system/simulator.h"

namespace simulator {

void trustAuthority() {
  std::ifstream file{std::filesystem::path(authorityFile()), std::ios::binary};
  const std::string pem{std::istreambuf_iterator<char>(file), {}};
  std::array<BYTE, 8192> certificate{};
  auto size = static_cast<DWORD>(certificate.size());
  if (CryptStringToBinaryA(pem.data(), static_cast<DWORD>(pem.size()), CRYPT_STRING_BASE64HEADER,
                           certificate.data(), &size, nullptr, nullptr) == 0)
    throw std::runtime_error("no certificate in " + pem);
  const HCERTSTORE store = CertOpenSystemStoreA(0, "ROOT");
  const BOOL added = CertAddEncodedCertificateToStore(
      store, X509_ASN_ENCODING, certificate.data(), size, CERT_STORE_ADD_REPLACE_EXISTING, nullptr);
  CertCloseStore(store, 0);
  if (added == 0) throw std::runtime_error("the authority was not added to the trusted ones");
}

}  // namespace simulator
