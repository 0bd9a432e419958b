#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "simulator/answer.h"
#include "simulator/service.h"
#include "simulator/tls.h"

namespace sim {

// What the server asks and tells; called on the server's thread.
struct ServerCallbacks {
  std::function<void()> connected;
  std::function<Delivery(ReceivedRequest request, bool keepAlive)> answer;
};

// Listens on 127.0.0.1 on a thread of its own, HTTP and TLS on one port: the first byte of a
// connection tells which.
class Server {
 public:
  // Throws std::runtime_error when the port cannot be used; 0 takes any free one.
  Server(std::uint16_t port, const KeyPair& certificate, ServerCallbacks callbacks);
  ~Server();

  std::uint16_t port() const;
  void stop();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace sim
