#include "tests/support/raw_server.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/ip/address_v4.hpp>
#include <boost/asio/write.hpp>
#include <boost/system/system_error.hpp>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <utility>

#include "tests/support/raw_connection.h"

namespace ktpnaips::test {

namespace asio = boost::asio;
using asio::ip::tcp;
using std::chrono::milliseconds;

namespace {

constexpr milliseconds patience{20'000};
constexpr milliseconds slice{20};

tcp::endpoint loopback(std::uint16_t port) {
  return {asio::ip::address_v4::loopback(), port};
}

std::wstring loopbackAddress(std::uint16_t port) {
  return L"127.0.0.1:" + std::to_wstring(port);
}

std::size_t contentLength(std::string_view head) {
  constexpr std::string_view name = "\r\nContent-Length: ";
  const std::size_t found = head.find(name);
  if (found == std::string_view::npos) return 0;
  return std::strtoul(head.data() + found + name.size(), nullptr, 10);
}

}  // namespace

bool Peer::Connection::waitToRead(milliseconds atMost) {
  const auto end = std::chrono::steady_clock::now() + atMost;
  bool ready = false;
  socket.async_wait(tcp::socket::wait_read, [&](const auto& failure) { ready = !failure; });
  io.restart();
  while (!ready && !stopping && std::chrono::steady_clock::now() < end) io.run_for(slice);
  if (!ready) {
    socket.cancel();
    io.restart();
    io.run();
  }
  return ready;
}

std::string Peer::readHead() {
  std::size_t end = 0;
  while ((end = pending_.find("\r\n\r\n")) == std::string::npos)
    if (readSome() == 0) throw std::runtime_error("closed inside the head");
  std::string head = pending_.substr(0, end + 4);
  pending_.erase(0, end + 4);
  return head;
}

std::string Peer::readRequest() {
  const std::string head = readHead();
  const std::size_t length = contentLength(head);
  while (pending_.size() < length)
    if (readSome() == 0) throw std::runtime_error("closed inside the body");
  const std::string body = pending_.substr(0, length);
  pending_.erase(0, length);
  return head + body;
}

std::size_t Peer::readSome() {
  std::array<char, 16384> buffer{};
  SecureLayer* const secure = connection_.secure.get();
  if (secure == nullptr || !secure->hasPending()) waitForBytes();
  std::size_t count = 0;
  if (secure != nullptr) {
    connection_.socket.native_non_blocking(false);  // waiting has changed it
    count = static_cast<std::size_t>(std::max(0, secure->read(buffer.data(), buffer.size())));
  } else {
    boost::system::error_code ended;
    count = connection_.socket.read_some(asio::buffer(buffer), ended);
  }
  pending_.append(buffer.data(), count);
  return count;
}

void Peer::waitForBytes() {
  if (!connection_.waitToRead(patience)) throw std::runtime_error("nothing came");
}

void Peer::write(std::string_view bytes) {
  if (connection_.secure == nullptr) {
    asio::write(connection_.socket, asio::buffer(bytes));
    return;
  }
  connection_.socket.native_non_blocking(false);  // waiting has changed it
  while (!bytes.empty()) {
    const int count = connection_.secure->write(bytes);
    if (count <= 0) throw std::runtime_error("not written");
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

bool Peer::waitForClose(milliseconds atMost) {
  const auto end = std::chrono::steady_clock::now() + atMost;
  std::array<char, 4096> buffer{};
  boost::system::error_code ended;
  for (;;) {
    const auto left =
        std::chrono::duration_cast<milliseconds>(end - std::chrono::steady_clock::now());
    if (left.count() <= 0 || !connection_.waitToRead(left)) return false;
    connection_.socket.read_some(asio::buffer(buffer), ended);
    if (ended) return true;
  }
}

void Peer::reset() {
  connection_.socket.set_option(tcp::socket::linger(true, 0));
  connection_.socket.close();
}

struct RawServer::Listener {
  asio::io_context io;
  tcp::acceptor acceptor{io, loopback(0), false};
};

RawServer::RawServer(std::vector<Script> scripts, int mostConnections)
    : scripts_(std::move(scripts)),
      mostConnections_(mostConnections),
      listener_(std::make_unique<Listener>()),
      port_(listener_->acceptor.local_endpoint().port()),
      thread_([this] { serve(); }) {}

RawServer::~RawServer() {
  stopping_ = true;
  thread_.join();
}

std::wstring RawServer::address() const {
  return loopbackAddress(port_);
}

void RawServer::serve() {
  while (!stopping_) {
    Peer::Connection connection(stopping_);
    bool accepted = false;
    listener_->acceptor.async_accept(connection.socket,
                                     [&](const auto& failure) { accepted = !failure; });
    listener_->io.restart();
    while (!accepted && !stopping_) listener_->io.run_for(slice);
    if (!accepted) {
      listener_->acceptor.cancel();
      listener_->io.restart();
      listener_->io.run();
      return;
    }
    const auto index = static_cast<std::size_t>(connections_++);
    const bool isLast = connections_ == mostConnections_;
    if (isLast) listener_->acceptor.close();
    try {
      Peer peer(connection);
      scripts_[std::min(index, scripts_.size() - 1)](peer);
    } catch (const std::exception&) {
      // The client went away, which its test sees from its own side.
    }
    if (isLast) return;
  }
}

RawServer::Script answering(std::string bytes) {
  return [bytes = std::move(bytes)](Peer& peer) {
    peer.readRequest();
    peer.write(bytes);
  };
}

std::uint16_t unusedPort() {
  asio::io_context io;
  return tcp::socket(io, loopback(0)).local_endpoint().port();
}

struct FullListener::Sockets {
  asio::io_context io;
  tcp::acceptor listener{io, tcp::v4()};
  std::vector<tcp::socket> waiting;
};

FullListener::FullListener() : sockets_(std::make_unique<Sockets>()) {
  sockets_->listener.bind(loopback(0));
  sockets_->listener.listen(0);
  for (int i = 0; i < 4; ++i) {
    tcp::socket& client = sockets_->waiting.emplace_back(sockets_->io, tcp::v4());
    client.async_connect(sockets_->listener.local_endpoint(), [](const auto&) {});
  }
}

FullListener::~FullListener() = default;

std::wstring FullListener::address() const {
  return loopbackAddress(sockets_->listener.local_endpoint().port());
}

void FullListener::close() {
  sockets_->listener.close();
}

}  // namespace ktpnaips::test
