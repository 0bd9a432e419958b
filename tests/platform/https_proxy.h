#pragma once

#include <ktpnaips/platform/text.h>

#include <string>

#include "tests/platform/http_proxy.h"
#include "tests/support/test_certificates.h"

namespace ktpnaips::test {

/// Calls over HTTPS, where the tests have a server for it.
class HttpsProxy : public HttpProxy {
 protected:
  RawServer::Script tunnelling(bool logIn, const std::string& answer = carried) {
    return [this, logIn, answer, context = authority_.server({})](Peer& peer) {
      const std::string connect = peer.readHead();
      note(connect);
      if (logIn && connect.find(basicOfAladdin) == std::string::npos) return peer.write(refusal);
      peer.write("HTTP/1.1 200 Connection established\r\nX-Proxy: 1\r\n\r\n");
      peer.startTls(context.get());
      note(peer.readRequest());
      peer.write(answer);
    };
  }
  [[nodiscard]] HttpCall call() const {
    HttpCall made;
    made.port = 443;
    made.flags = lenientTls;
    made.route.caFile = text::fromUtf8(authority_.file());
    return made;
  }
  CertificateAuthority authority_;
};

}  // namespace ktpnaips::test
