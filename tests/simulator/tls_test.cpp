#include <gmock/gmock.h>
#include <openssl/bio.h>
#include <openssl/bn.h>
#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/x509.h>
#include <openssl/x509_vfy.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include "simulator/tls.h"
#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::HasSubstr;

std::string content(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

class Tls : public ServiceTest {
 protected:
  long verdict(sim::Certificate certificate) {
    options.certificate = certificate;
    const Reply reply = postTls("/naips/account-service", envelope(""));
    EXPECT_EQ(reply.connected, reply.verifyResult == X509_V_OK);
    return reply.verifyResult;
  }
};

TEST_F(Tls, ShowsACertificateThatItsAuthorityIssuedForTheLoopback) {
  EXPECT_EQ(verdict(sim::Certificate::valid), X509_V_OK);
}

TEST_F(Tls, ShowsAnExpiredCertificate) {
  EXPECT_EQ(verdict(sim::Certificate::expired), X509_V_ERR_CERT_HAS_EXPIRED);
}

TEST_F(Tls, ShowsACertificateThatIsNotYetValid) {
  EXPECT_EQ(verdict(sim::Certificate::notYetValid), X509_V_ERR_CERT_NOT_YET_VALID);
}

TEST_F(Tls, ShowsACertificateForAnotherHost) {
  EXPECT_EQ(verdict(sim::Certificate::wrongName), X509_V_ERR_IP_ADDRESS_MISMATCH);
}

TEST_F(Tls, ShowsACertificateOfAnUnknownIssuer) {
  EXPECT_EQ(verdict(sim::Certificate::unknownIssuer), X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY);
}

TEST_F(Tls, KeepsItsAuthorityFromStartToStart) {
  const std::string first = content(sim::Service(options).caFile());
  EXPECT_THAT(first, HasSubstr("BEGIN CERTIFICATE"));
  EXPECT_EQ(content(sim::Service(options).caFile()), first);
}

TEST_F(Tls, ShowsTheAuthoritysKeyToItsOwnerAlone) {
  service();
  using std::filesystem::perms;
  for (const auto& entry : std::filesystem::directory_iterator(options.stateFolder)) {
    if (content(entry.path()).find("PRIVATE KEY") != std::string::npos) {
      EXPECT_EQ(entry.status().permissions(), perms::owner_read | perms::owner_write) << entry;
    }
  }
  EXPECT_EQ(content(service().caFile()).find("PRIVATE KEY"), std::string::npos);
}

TEST_F(Tls, ReplacesAnAuthorityThatCannotBeRead) {
  service();
  for (const auto& entry : std::filesystem::directory_iterator(options.stateFolder)) {
    std::ofstream(entry.path()) << "damaged";
  }
  const sim::Service second(options);
  const std::string bytes = httpRequest("POST", "/naips/account-service", "");
  EXPECT_TRUE(roundTrip(second.port(), bytes, second.caFile()).connected);
}

TEST_F(Tls, SharesOneAuthorityBetweenServicesThatStartAtOnce) {
  const std::string bytes = httpRequest("POST", "/naips/account-service", "");
  std::vector<std::thread> starters;
  for (int i = 0; i < 4; ++i) {
    starters.emplace_back([&] {
      const sim::Service started(options);
      EXPECT_TRUE(roundTrip(started.port(), bytes, started.caFile()).connected);
    });
  }
  for (std::thread& starter : starters) {
    starter.join();
  }
}

TEST_F(Tls, NamesAStateFolderThatCannotBeUsed) {
  options.stateFolder = "/proc/naips-simulator";
  try {
    service();
    FAIL() << "started";
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("/proc/naips-simulator"));
    EXPECT_THAT(error.what(), HasSubstr("Choose another state folder"));
  }
}

// The sizes in bytes of the two numbers of the certificate's signature.
std::pair<int, int> signatureSizes(const std::string& certificate) {
  const std::unique_ptr<BIO, decltype(&BIO_free)> text(
      BIO_new_mem_buf(certificate.data(), static_cast<int>(certificate.size())), BIO_free);
  const std::unique_ptr<X509, decltype(&X509_free)> read(
      PEM_read_bio_X509(text.get(), nullptr, nullptr, nullptr), X509_free);
  const ASN1_BIT_STRING* bits = nullptr;
  X509_get0_signature(&bits, nullptr, read.get());
  const unsigned char* next = bits->data;
  const std::unique_ptr<ECDSA_SIG, decltype(&ECDSA_SIG_free)> signature(
      d2i_ECDSA_SIG(nullptr, &next, bits->length), ECDSA_SIG_free);
  return {BN_num_bytes(ECDSA_SIG_get0_r(signature.get())),
          BN_num_bytes(ECDSA_SIG_get0_s(signature.get()))};
}

// Wine takes a signature with a shorter number, one in 128, for a wrong one.
TEST_F(Tls, SignsWithNumbersOfFullLength) {
  const sim::KeyPair authority = sim::authorityIn(options.stateFolder);
  for (int i = 0; i < 400; ++i) {
    const auto issued = sim::issue(authority, sim::Certificate::valid, {});
    ASSERT_EQ(signatureSizes(issued.certificate), std::pair(32, 32)) << "certificate " << i;
  }
}

TEST(CertificateName, IsOneOfTheDocumentedOnes) {
  EXPECT_EQ(sim::certificateFromName("not-yet-valid"), sim::Certificate::notYetValid);
  EXPECT_EQ(sim::certificateFromName("wrong-name"), sim::Certificate::wrongName);
  EXPECT_THROW(sim::certificateFromName("good"), std::invalid_argument);
}

}  // namespace
}  // namespace simtest
