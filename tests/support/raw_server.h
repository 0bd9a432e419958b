#pragma once

#include <atomic>
#include <chrono>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

using SSL_CTX = struct ssl_ctx_st;

namespace ktpnaips::test {

/// The server's end of one connection, in a script's hands. Failures throw, which ends the script.
class Peer {
 public:
  struct Connection;

  explicit Peer(Connection& connection) : connection_(connection) {}

  /// Up to and with the empty line.
  std::string readHead();
  /// The head and as much body as its Content-Length says.
  std::string readRequest();
  /// Waits until something has come, and leaves it where it is.
  void waitForBytes();
  void write(std::string_view bytes);
  /// Reads and drops what comes until the other side closes; says whether it did in time.
  bool waitForClose(std::chrono::milliseconds atMost = std::chrono::seconds(20));
  /// Closes with a TCP reset.
  void reset();

  /// Goes on over TLS; where the tests have an OpenSSL.
  void startTls(SSL_CTX* context);
  /// The name that the client asked for in its TLS handshake.
  [[nodiscard]] std::string serverName() const;
  [[nodiscard]] bool resumed() const;

 private:
  std::size_t readSome();

  Connection& connection_;
  std::string pending_;
};

/// A server on a free loopback port that does with each connection what a script says: the first
/// script with the first connection and so on, the last one with all that follow.
class RawServer {
 public:
  using Script = std::function<void(Peer&)>;

  /// Refuses connections after so many.
  explicit RawServer(std::vector<Script> scripts, int mostConnections = INT_MAX);
  explicit RawServer(Script script) : RawServer(std::vector<Script>{std::move(script)}) {}
  ~RawServer();
  RawServer(const RawServer&) = delete;
  RawServer& operator=(const RawServer&) = delete;

  [[nodiscard]] std::uint16_t port() const { return port_; }
  /// "127.0.0.1:port"
  [[nodiscard]] std::wstring address() const;
  [[nodiscard]] int connections() const { return connections_; }

 private:
  struct Listener;

  void serve();

  std::vector<Script> scripts_;
  int mostConnections_;
  std::unique_ptr<Listener> listener_;
  std::uint16_t port_ = 0;
  std::atomic<int> connections_ = 0;
  std::atomic<bool> stopping_ = false;
  std::thread thread_;
};

/// Reads the request and writes this, then closes.
RawServer::Script answering(std::string bytes);

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
  /// Refuses what waits, and what is to come.
  void close();

 private:
  struct Sockets;

  std::unique_ptr<Sockets> sockets_;
};

}  // namespace ktpnaips::test
