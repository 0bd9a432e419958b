#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

using SSL = struct ssl_st;
using SSL_CTX = struct ssl_ctx_st;

namespace ktpnaips::test {

/// The server's end of one connection, in a script's hands. Failures throw, which ends the script.
class Peer {
 public:
  explicit Peer(int socket);
  ~Peer();
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  /// Up to and with the empty line.
  std::string readHead();
  /// The head and as much body as its Content-Length says.
  std::string readRequest();
  /// Waits until something has come, and leaves it where it is.
  void waitForBytes() const;
  void write(std::string_view bytes);
  /// Reads and drops what comes until the other side closes; says whether it did in time.
  bool waitForClose(std::chrono::milliseconds atMost = std::chrono::seconds(20));
  /// Closes with a TCP reset.
  void reset();

  void startTls(SSL_CTX* context);
  /// The name that the client asked for in its TLS handshake.
  std::string serverName() const;
  bool resumed() const;

 private:
  std::size_t readSome();

  int socket_;
  SSL* tls_ = nullptr;
  std::string pending_;
};

/// A server on a free loopback port that does with each connection what a script says: the first
/// script with the first connection and so on, the last one with all that follow.
class RawServer {
 public:
  using Script = std::function<void(Peer&)>;

  explicit RawServer(std::vector<Script> scripts);
  explicit RawServer(Script script) : RawServer(std::vector<Script>{std::move(script)}) {}
  ~RawServer();
  RawServer(const RawServer&) = delete;
  RawServer& operator=(const RawServer&) = delete;

  [[nodiscard]] std::uint16_t port() const { return port_; }
  /// "127.0.0.1:port"
  [[nodiscard]] std::wstring address() const;
  [[nodiscard]] int connections() const { return connections_; }

 private:
  void serve();
  void serveOne(int socket);

  std::vector<Script> scripts_;
  int listener_;
  std::uint16_t port_ = 0;
  std::atomic<int> connections_ = 0;
  std::mutex mutex_;
  int current_ = -1;
  bool stopping_ = false;
  std::thread thread_;
};

/// A loopback port that nobody listens on.
std::uint16_t unusedPort();

/// A listener that lets connections wait for ever: its queue is full.
class FullListener {
 public:
  FullListener();
  ~FullListener();
  FullListener(const FullListener&) = delete;
  FullListener& operator=(const FullListener&) = delete;
  [[nodiscard]] std::wstring address() const;

 private:
  std::vector<int> sockets_;
  std::uint16_t port_ = 0;
};

}  // namespace ktpnaips::test
