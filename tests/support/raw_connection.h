#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>

#include <atomic>
#include <cstddef>
#include <memory>
#include <string_view>

#include "tests/support/raw_server.h"

namespace ktpnaips::test {

/// What stands between a script and its socket once TLS has started.
class SecureLayer {
 public:
  SecureLayer() = default;
  virtual ~SecureLayer() = default;
  SecureLayer(const SecureLayer&) = delete;
  SecureLayer& operator=(const SecureLayer&) = delete;

  [[nodiscard]] virtual bool hasPending() const = 0;
  /// How many bytes came; 0 or less at the end.
  virtual int read(char* buffer, std::size_t size) = 0;
  virtual int write(std::string_view bytes) = 0;
};

struct Peer::Connection {
  explicit Connection(const std::atomic<bool>& serverStops) : stopping(serverStops) {}

  /// Waits, in slices, until there is something to read; false when the time is over or the
  /// server stops.
  bool waitToRead(std::chrono::milliseconds atMost);

  const std::atomic<bool>& stopping;
  boost::asio::io_context io;
  boost::asio::ip::tcp::socket socket{io};
  std::unique_ptr<SecureLayer> secure;
};

}  // namespace ktpnaips::test
