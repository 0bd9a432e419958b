#include <openssl/ssl.h>

#include <csignal>
#include <memory>
#include <stdexcept>

#include "tests/support/raw_connection.h"

namespace ktpnaips::test {

namespace {

/// OpenSSL writes without asking that a closed connection be no signal.
void blockBrokenPipe() {
  sigset_t brokenPipe;
  sigemptyset(&brokenPipe);
  sigaddset(&brokenPipe, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
}

class OpenSslLayer : public SecureLayer {
 public:
  OpenSslLayer(SSL_CTX* context, int socket) : tls_(SSL_new(context)) {
    blockBrokenPipe();
    SSL_set_fd(tls_, socket);
    if (SSL_accept(tls_) == 1) return;
    SSL_free(tls_);
    throw std::runtime_error("no TLS");
  }
  ~OpenSslLayer() override {
    SSL_shutdown(tls_);
    SSL_free(tls_);
  }
  OpenSslLayer(const OpenSslLayer&) = delete;
  OpenSslLayer& operator=(const OpenSslLayer&) = delete;

  [[nodiscard]] bool hasPending() const override { return SSL_pending(tls_) > 0; }
  int read(char* buffer, std::size_t size) override {
    return SSL_read(tls_, buffer, static_cast<int>(size));
  }
  int write(std::string_view bytes) override {
    return SSL_write(tls_, bytes.data(), static_cast<int>(bytes.size()));
  }
  [[nodiscard]] SSL* tls() const { return tls_; }

 private:
  SSL* tls_;
};

SSL* tlsOf(const Peer::Connection& connection) {
  return dynamic_cast<const OpenSslLayer&>(*connection.secure).tls();
}

}  // namespace

void Peer::startTls(SSL_CTX* context) {
  connection_.socket.native_non_blocking(false);  // waiting has changed it
  connection_.secure = std::make_unique<OpenSslLayer>(context, connection_.socket.native_handle());
}

std::string Peer::serverName() const {
  const char* const name = SSL_get_servername(tlsOf(connection_), TLSEXT_NAMETYPE_host_name);
  return name != nullptr ? name : "";
}

bool Peer::resumed() const {
  return SSL_session_reused(tlsOf(connection_)) == 1;
}

}  // namespace ktpnaips::test
