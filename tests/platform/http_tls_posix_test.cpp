#include <gtest/gtest.h>
#include <ktpnaips/platform/http.h>
#include <ktpnaips/platform/posix/http_certificates.h>
#include <ktpnaips/platform/text.h>
#include <openssl/ssl.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/data_folder.h"
#include "tests/support/http_call.h"
#include "tests/support/raw_server.h"
#include "tests/support/scoped_environment.h"
#include "tests/support/test_certificates.h"

namespace ktpnaips::test {
namespace {

class HttpTls : public testing::Test {
 protected:
  static RawServer::Script answering(const std::shared_ptr<SSL_CTX>& context) {
    return [context](Peer& peer) {
      peer.startTls(context.get());
      const std::string name = peer.serverName() + (peer.resumed() ? " resumed" : "");
      const std::string request = peer.readRequest();
      const bool host = request.find("\r\nHost: naips.example\r\n") != std::string::npos;
      const std::string body = name + (host ? "" : " wrong host");
      peer.write("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" +
                 body);
    };
  }
  [[nodiscard]] HttpCall callTo(const RawServer& server, std::uint32_t flags = lenientTls) const {
    HttpCall call;
    call.port = 443;
    call.flags = flags;
    call.route = {server.address(), text::fromUtf8(authority_.file())};
    return call;
  }
  [[nodiscard]] http::ErrorCode codeFor(const CertificateWish& wish,
                                        std::uint32_t flags = lenientTls) const {
    const RawServer server(answering(authority_.server(wish)));
    return run(callTo(server, flags)).code;
  }

  CertificateAuthority authority_;

 private:
  NoProxies noProxies_;
};

CertificateWish expired() {
  CertificateWish wish;
  wish.validFromDays = -60;
  wish.validToDays = -30;
  return wish;
}

CertificateWish notYetValid() {
  CertificateWish wish;
  wish.validFromDays = 30;
  wish.validToDays = 60;
  return wish;
}

CertificateWish otherName() {
  CertificateWish wish;
  wish.hostName = "elsewhere.example";
  return wish;
}

TEST_F(HttpTls, KeepsServerNameAndHostHeaderWhereverTheConnectionGoes) {
  const RawServer server(answering(authority_.server({})));
  const HttpOutcome outcome = run(callTo(server));
  EXPECT_EQ(outcome.code, 0U);
  EXPECT_EQ(outcome.body, "naips.example");
}

TEST_F(HttpTls, AcceptsAGoodCertificateUnderTheStrictPolicy) {
  EXPECT_EQ(codeFor({}, http::secure), 0U);
}

TEST_F(HttpTls, AcceptsExpiredAndNotYetValidCertificatesWhenAsked) {
  EXPECT_EQ(codeFor(expired()), 0U);
  EXPECT_EQ(codeFor(notYetValid()), 0U);
}

TEST_F(HttpTls, AcceptsAnotherHostNameWhenAsked) {
  EXPECT_EQ(codeFor(otherName()), 0U);
}

TEST_F(HttpTls, RefusesExpiredAndNotYetValidCertificatesOtherwise) {
  EXPECT_EQ(codeFor(expired(), http::secure | http::ignoreCertNameInvalid), 12037U);
  EXPECT_EQ(codeFor(notYetValid(), http::secure | http::ignoreCertNameInvalid), 12037U);
}

TEST_F(HttpTls, RefusesAnotherHostNameOtherwise) {
  EXPECT_EQ(codeFor(otherName(), http::secure | http::ignoreCertDateInvalid), 12038U);
}

TEST_F(HttpTls, RefusesAnUnknownIssuer) {
  const CertificateAuthority stranger;
  const RawServer server(answering(stranger.server({})));
  EXPECT_EQ(run(callTo(server)).code, 12045U);
}

TEST_F(HttpTls, LoadsTheIssuersAgainAfterItRefusedOne) {
  const CertificateAuthority stranger;
  const ScratchFolder folder;
  const auto issuers = folder.path() / "issuers.pem";
  const RawServer server(answering(authority_.server({})));
  HttpCall call = callTo(server);
  call.route.caFile = text::fromUtf8(issuers.string());
  putFile(issuers, contentOf(stranger.file()));
  EXPECT_EQ(run(call).code, 12045U);
  putFile(issuers, contentOf(authority_.file()));
  EXPECT_EQ(run(call).code, 0U);
}

TEST_F(HttpTls, RefusesAnUnknownIssuerOfAnExpiredCertificateToo) {
  const CertificateAuthority stranger;
  const RawServer server(answering(stranger.server(expired())));
  EXPECT_EQ(run(callTo(server)).code, 12045U);
}

TEST_F(HttpTls, RefusesASelfSignedCertificate) {
  CertificateWish wish;
  wish.selfSigned = true;
  EXPECT_EQ(codeFor(wish), 12045U);
}

TEST_F(HttpTls, RefusesABrokenSignature) {
  CertificateWish wish;
  wish.brokenSignature = true;
  EXPECT_EQ(codeFor(wish), 12175U);
}

TEST_F(HttpTls, RefusesACertificateForAnotherPurpose) {
  CertificateWish wish;
  wish.forClientsOnly = true;
  EXPECT_EQ(codeFor(wish), 12175U);
}

TEST_F(HttpTls, SaysWhichCertificateWasRefusedAndWhy) {
  CertificateWish wish;
  wish.selfSigned = true;
  const http::ErrorCode code = codeFor(wish);
  const std::wstring text = http::errorMessage(code);
  EXPECT_NE(text.find(L"CN=naips.example"), std::wstring::npos) << text::toUtf8(text);
  EXPECT_NE(text.find(L"self-signed"), std::wstring::npos) << text::toUtf8(text);
}

TEST_F(HttpTls, SendsNothingToARefusedServer) {
  const CertificateAuthority stranger;
  bool handshake = false;
  {
    const RawServer server([&](Peer& peer) {
      const auto context = stranger.server({});
      peer.startTls(context.get());
      peer.readHead();
      handshake = true;
    });
    EXPECT_EQ(run(callTo(server)).code, 12045U);
  }
  EXPECT_FALSE(handshake);
}

TEST_F(HttpTls, ReportsAFileOfIssuersThatCannotBeRead) {
  const RawServer server(answering(authority_.server({})));
  HttpCall call = callTo(server);
  call.route.caFile = L"/nonexistent/issuers.pem";
  EXPECT_EQ(run(call).code, 12175U);
}

TEST_F(HttpTls, TrustsTheIssuersThatTheEnvironmentNames) {
  const RawServer server(answering(authority_.server({})));
  HttpCall call = callTo(server);
  call.route.caFile.clear();
  EXPECT_EQ(run(call).code, 12045U);
  const ScopedEnvironment issuers("SSL_CERT_FILE", authority_.file());
  EXPECT_EQ(run(call).code, 0U);
}

TEST_F(HttpTls, TrustsTheFolderOfIssuersThatTheEnvironmentNames) {
  const ScratchFolder folder;
  putFile(folder.path() / "authority.pem", contentOf(authority_.file()));
  ASSERT_EQ(std::system(("openssl rehash " + folder.path().string()).c_str()), 0);
  const RawServer server(answering(authority_.server({})));
  HttpCall call = callTo(server);
  call.route.caFile.clear();
  EXPECT_EQ(run(call).code, 12045U);
  const ScopedEnvironment noFile("SSL_CERT_FILE", std::nullopt);
  const ScopedEnvironment issuers("SSL_CERT_DIR", folder.path().string());
  EXPECT_EQ(run(call).code, 0U);
}

/// Notes how many issuers are loaded when a certificate is to be verified, and accepts it.
int countIssuers(X509_STORE_CTX* verification, void* counts) {
  X509_STORE* const store = X509_STORE_CTX_get0_store(verification);
  static_cast<std::vector<int>*>(counts)->push_back(
      sk_X509_OBJECT_num(X509_STORE_get0_objects(store)));
  return 1;
}

CURLcode countWhenVerifying(CURL*, void* context, void* counts) {
  SSL_CTX_set_cert_verify_callback(static_cast<SSL_CTX*>(context), countIssuers, counts);
  return CURLE_OK;
}

/// How many issuers are loaded for each TLS connection of a call.
std::vector<int> issuersLoadedFor(const std::string& url, const std::string& proxy) {
  std::vector<int> counts;
  const http::CertificatePolicy policy;
  const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> easy(curl_easy_init(),
                                                                 curl_easy_cleanup);
  http::applyPolicy(easy.get(), policy);
  curl_easy_setopt(easy.get(), CURLOPT_SSL_CTX_FUNCTION, &countWhenVerifying);
  curl_easy_setopt(easy.get(), CURLOPT_SSL_CTX_DATA, &counts);
  curl_easy_setopt(easy.get(), CURLOPT_URL, url.c_str());
  curl_easy_setopt(easy.get(), CURLOPT_PROXY, proxy.c_str());
  curl_easy_perform(easy.get());
  return counts;
}

TEST_F(HttpTls, TrustsTheFolderOfIssuersInPlaceOfTheSystemsAlsoForAProxy) {
  const ScratchFolder folder;
  const RawServer server(answering(authority_.server({})));
  const std::string url = "https://127.0.0.1:" + std::to_string(server.port());
  const ScopedEnvironment noFile("SSL_CERT_FILE", std::nullopt);
  const ScopedEnvironment noFolder("SSL_CERT_DIR", std::nullopt);
  for (const bool isProxy : {false, true}) {
    const auto issuersLoaded = [&] {
      return issuersLoadedFor(isProxy ? "https://naips.example" : url, isProxy ? url : "");
    };
    const std::vector<int> systems = issuersLoaded();
    ASSERT_EQ(systems.size(), 1U);
    EXPECT_GT(systems.front(), 50);
    const ScopedEnvironment issuers("SSL_CERT_DIR", folder.path().string());
    EXPECT_EQ(issuersLoaded(), std::vector<int>{0});
  }
}

TEST_F(HttpTls, ResumesTheSessionOnTheNextCallOfAThread) {
  const RawServer server(answering(authority_.server({})));
  const HttpCall call = callTo(server);
  EXPECT_EQ(run(call).body, "naips.example");
  EXPECT_EQ(run(call).body, "naips.example resumed");
  std::thread([&] { EXPECT_EQ(run(call).body, "naips.example"); }).join();
  EXPECT_EQ(server.connections(), 3);
}

TEST_F(HttpTls, MakesOneFullHandshakeAThreadHoweverManyCalls) {
  const RawServer server(answering(authority_.server({})));
  const HttpCall call = callTo(server);
  constexpr int calls = 5;
  std::vector<int> resumed(2);
  std::vector<std::thread> threads;
  for (int& count : resumed) {
    threads.emplace_back([&] {
      for (int i = 0; i < calls; ++i) count += run(call).body == "naips.example resumed" ? 1 : 0;
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(resumed, std::vector<int>(2, calls - 1));
  EXPECT_EQ(server.connections(), 2 * calls);
}

TEST_F(HttpTls, DoesNotLetASessionOfTheLenientPolicyPassTheStrictOne) {
  const RawServer server(answering(authority_.server(expired())));
  EXPECT_EQ(run(callTo(server)).code, 0U);
  EXPECT_EQ(run(callTo(server, http::secure | http::ignoreCertNameInvalid)).code, 12037U);
}

TEST_F(HttpTls, DoesNotLetASessionPassUnderOtherIssuers) {
  const RawServer server(answering(authority_.server({})));
  HttpCall call = callTo(server);
  EXPECT_EQ(run(call).code, 0U);
  const CertificateAuthority other;
  call.route.caFile = text::fromUtf8(other.file());
  EXPECT_EQ(run(call).code, 12045U);
}

TEST_F(HttpTls, ReportsAServerThatDoesNotSpeakTls) {
  const RawServer server([](Peer& peer) { peer.write("HTTP/1.1 400 Bad\r\n\r\n"); });
  EXPECT_EQ(run(callTo(server)).code, 12157U);
}

TEST_F(HttpTls, ReportsAResetInTheHandshake) {
  const RawServer server([](Peer& peer) {
    peer.waitForBytes();
    peer.reset();
  });
  EXPECT_EQ(run(callTo(server)).code, 12031U);
}

TEST_F(HttpTls, TellsAFailureOfTlsFromTheResetBeforeIt) {
  const RawServer server({[](Peer& peer) {
                            peer.waitForBytes();
                            peer.reset();
                          },
                          [](Peer& peer) {
                            peer.write("HTTP/1.1 400 Bad\r\n\r\n");
                            peer.waitForClose();
                          }});
  EXPECT_EQ(run(callTo(server)).code, 12031U);
  EXPECT_EQ(run(callTo(server)).code, 12157U);
}

TEST_F(HttpTls, GivesTheHandshakeTheSendTimeOutAndNotTheConnectTimeOut) {
  const RawServer server([context = authority_.server({})](Peer& peer) {
    std::this_thread::sleep_for(std::chrono::milliseconds(900));
    answering(context)(peer);
  });
  HttpCall call = callTo(server);
  call.connectTimeout = 300;
  EXPECT_EQ(run(call).code, 0U);
  call.sendTimeout = 300;
  EXPECT_EQ(run(call).code, 12002U);
}

TEST_F(HttpTls, SurvivesAResetWhileALongBodyIsSent) {
  const RawServer server([context = authority_.server({})](Peer& peer) {
    peer.startTls(context.get());
    peer.readHead();
    peer.reset();
  });
  HttpCall call = callTo(server);
  call.body = std::string(20'000'000, 'x');
  EXPECT_EQ(run(call).code, 12031U);
}

TEST_F(HttpTls, ReadsALongAnswerWhole) {
  const std::string body(5'000'000, 'x');
  const RawServer server([&body, context = authority_.server({})](Peer& peer) {
    peer.startTls(context.get());
    peer.readRequest();
    peer.write("HTTP/1.1 200 OK\r\nContent-Length: 5000000\r\n\r\n" + body);
  });
  const HttpOutcome outcome = run(callTo(server));
  EXPECT_TRUE(outcome.bodyIsWhole);
  EXPECT_TRUE(outcome.body == body);
}

}  // namespace
}  // namespace ktpnaips::test
