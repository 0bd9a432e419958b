#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <openssl/ssl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "answers.h"

/// A service that sends answers made up beforehand: "login.bench.example" as the host gives the
/// answer "login". Prints its HTTP and its HTTPS port and lives as long as its standard input.
namespace {

constexpr int threadsOfAPort = 8;

/// A connection, with TLS or without.
class Connection {
 public:
  Connection(int socket, SSL_CTX* tls) : socket_(socket), tls_(tls ? SSL_new(tls) : nullptr) {
    const int on = 1;
    ::setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    if (tls_ != nullptr) SSL_set_fd(tls_, socket_);
    good_ = tls_ == nullptr || SSL_accept(tls_) == 1;
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() {
    SSL_free(tls_);
    ::close(socket_);
  }

  /// The host and nothing else of the next request, once its body is there; empty at the end.
  std::string nextHost() {
    std::size_t headerEnd = 0;
    while ((headerEnd = received_.find("\r\n\r\n")) == std::string::npos) {
      if (!receive()) return {};
    }
    const std::string headers = received_.substr(0, headerEnd);
    const std::string length = header(headers, "\r\nContent-Length: ");
    const std::size_t end = headerEnd + 4 + (length.empty() ? 0U : std::stoul(length));
    while (received_.size() < end) {
      if (!receive()) return {};
    }
    received_.erase(0, end);
    return header(headers, "\r\nHost: ");
  }

  bool send(std::string_view bytes) {
    while (!bytes.empty()) {
      const auto most = static_cast<int>(std::min<std::size_t>(bytes.size(), 1U << 30U));
      const ssize_t sent = tls_ != nullptr
                               ? SSL_write(tls_, bytes.data(), most)
                               : ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      if (sent <= 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
  }

 private:
  static std::string header(std::string_view headers, std::string_view name) {
    const std::size_t at = headers.find(name);
    if (at == std::string_view::npos) return {};
    const std::string_view value = headers.substr(at + name.size());
    return std::string(value.substr(0, value.find("\r\n")));
  }

  bool receive() {
    std::array<char, 16384> buffer;
    const auto size = static_cast<int>(buffer.size());
    const ssize_t got = !good_            ? 0
                        : tls_ != nullptr ? SSL_read(tls_, buffer.data(), size)
                                          : ::recv(socket_, buffer.data(), buffer.size(), 0);
    if (got > 0) received_.append(buffer.data(), static_cast<std::size_t>(got));
    return got > 0;
  }

  int socket_;
  SSL* tls_;
  bool good_ = false;
  std::string received_;
};

/// The whole answer to a host's name, made on first use.
const std::string& answerOf(const std::string& host) {
  static std::mutex making;
  static std::map<std::string, std::string> made;
  const std::lock_guard lock(making);
  const auto [found, isNew] = made.try_emplace(host);
  if (isNew) {
    const std::string body = bench::answer(host.substr(0, host.find('.')));
    found->second = "HTTP/1.1 200 OK\r\nContent-Type: text/xml; charset=utf-8\r\nContent-Length: " +
                    std::to_string(body.size()) + "\r\n\r\n" + body;
  }
  return found->second;
}

void serve(int listener, SSL_CTX* tls) {
  for (;;) {
    const int socket = ::accept(listener, nullptr, nullptr);
    if (socket < 0) continue;
    Connection connection(socket, tls);
    for (std::string host; !(host = connection.nextHost()).empty();) {
      if (!connection.send(answerOf(host))) break;
    }
  }
}

/// Listens on a free port of the loopback and says which.
int listen(SSL_CTX* tls) {
  const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  auto* general = reinterpret_cast<sockaddr*>(&address);
  if (::bind(listener, general, length) != 0 || ::listen(listener, 512) != 0 ||
      ::getsockname(listener, general, &length) != 0) {
    std::perror("listening");
    return 0;
  }
  for (int i = 0; i < threadsOfAPort; ++i) std::thread(serve, listener, tls).detach();
  return ntohs(address.sin_port);
}

SSL_CTX* tlsContext(const char* certificate, const char* key) {
  SSL_CTX* tls = SSL_CTX_new(TLS_server_method());
  const bool good = SSL_CTX_use_certificate_chain_file(tls, certificate) == 1 &&
                    SSL_CTX_use_PrivateKey_file(tls, key, SSL_FILETYPE_PEM) == 1;
  return good ? tls : nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);
  SSL_CTX* tls = argc == 3 ? tlsContext(argv[1], argv[2]) : nullptr;
  if (tls == nullptr) {
    std::fprintf(stderr, "Usage: bench-server CERTIFICATE.pem KEY.pem\n");
    return 2;
  }
  std::printf("%d %d\n", listen(nullptr), listen(tls));
  std::fflush(stdout);
  while (std::getchar() != EOF) {
  }
  std::_Exit(0);
}
