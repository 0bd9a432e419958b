#include "simulator/server.h"

#include <utility>  // what Asio of Boost 1.74 does not include itself

#include <boost/asio/buffer.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/detached.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/redirect_error.hpp>
#include <boost/asio/ssl/context.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <boost/system/system_error.hpp>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

#include "simulator/connection.h"

namespace sim {

namespace asio = boost::asio;
using asio::ip::tcp;

struct Server::Impl {
  // Destroyed as a whole, which ends every connection.
  struct Loop {
    asio::io_context io{1};
    tcp::acceptor acceptor{io};
  };

  Impl(std::uint16_t port, const KeyPair& certificate, ServerCallbacks given);

  void listen(std::uint16_t port);
  asio::awaitable<void> accept();

  ServerCallbacks callbacks;
  asio::ssl::context tls{asio::ssl::context::tls_server};
  std::uint16_t boundPort = 0;
  std::unique_ptr<Loop> loop = std::make_unique<Loop>();
  std::thread thread;
};

Server::Impl::Impl(std::uint16_t port, const KeyPair& certificate, ServerCallbacks given)
    : callbacks(std::move(given)) {
  tls.use_certificate_chain(asio::buffer(certificate.certificate));
  tls.use_private_key(asio::buffer(certificate.key), asio::ssl::context::pem);
  listen(port);
}

void Server::Impl::listen(std::uint16_t port) {
  const tcp::endpoint endpoint(asio::ip::address_v4::loopback(), port);
  tcp::acceptor& acceptor = loop->acceptor;
  try {
    acceptor.open(endpoint.protocol());
    acceptor.set_option(tcp::acceptor::reuse_address(true));
    acceptor.bind(endpoint);
    acceptor.listen();
    boundPort = acceptor.local_endpoint().port();
  } catch (const boost::system::system_error& error) {
    throw std::runtime_error(
        "The simulated service cannot listen on 127.0.0.1:" + std::to_string(port) + ": " +
        error.code().message() + ". Choose another port, or none for a free one.");
  }
}

asio::awaitable<void> Server::Impl::accept() {
  for (;;) {
    boost::system::error_code error;
    tcp::socket socket =
        co_await loop->acceptor.async_accept(asio::redirect_error(asio::use_awaitable, error));
    if (error) {
      // Out of descriptors, as a rule: others will be closed soon.
      asio::steady_timer pause(loop->io, std::chrono::milliseconds(20));
      co_await pause.async_wait(asio::use_awaitable);
      continue;
    }
    socket.set_option(tcp::no_delay(true), error);
    callbacks.connected();
    asio::co_spawn(loop->io, serveConnection(std::move(socket), tls, callbacks), asio::detached);
  }
}

Server::Server(std::uint16_t port, const KeyPair& certificate, ServerCallbacks callbacks)
    : impl_(std::make_unique<Impl>(port, certificate, std::move(callbacks))) {
  asio::co_spawn(impl_->loop->io, impl_->accept(), asio::detached);
  impl_->thread = std::thread([this] { impl_->loop->io.run(); });
}

Server::~Server() {
  stop();
}

void Server::stop() {
  if (!impl_->thread.joinable()) {
    return;
  }
  impl_->loop->io.stop();
  impl_->thread.join();
  impl_->loop.reset();
}

std::uint16_t Server::port() const {
  return impl_->boundPort;
}

}  // namespace sim
