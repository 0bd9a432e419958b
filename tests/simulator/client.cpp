#include "tests/simulator/client.h"

#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include <array>
#include <boost/asio/awaitable.hpp>
#include <boost/asio/buffer.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/detached.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <boost/asio/write.hpp>
#include <boost/system/system_error.hpp>

namespace simtest {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;

template <class Stream>
asio::awaitable<void> writeAndRead(Stream& stream, std::string_view bytes, Reply& reply) {
  const asio::const_buffer request(bytes.data(), bytes.size());
  co_await asio::async_write(stream, request, asio::use_awaitable);
  std::array<char, 65536> space{};
  for (;;) {
    const asio::mutable_buffer buffer = asio::buffer(space);
    const std::size_t count = co_await stream.async_read_some(buffer, asio::use_awaitable);
    reply.bytes.append(space.data(), count);
  }
}

asio::awaitable<void> talkTls(tcp::socket socket, std::string_view bytes,
                              const std::filesystem::path& issuers, Reply& reply) {
  asio::ssl::context context(asio::ssl::context::tls_client);
  context.load_verify_file(issuers.string());
  asio::ssl::stream<tcp::socket> stream(std::move(socket), context);
  stream.set_verify_mode(asio::ssl::verify_peer);
  X509_VERIFY_PARAM_set1_ip_asc(SSL_get0_param(stream.native_handle()), "127.0.0.1");
  boost::system::error_code failed;
  try {
    co_await stream.async_handshake(asio::ssl::stream_base::client, asio::use_awaitable);
  } catch (const boost::system::system_error& error) {
    failed = error.code();
  }
  reply.verifyResult = SSL_get_verify_result(stream.native_handle());
  if (!failed) {
    reply.connected = true;
    co_await writeAndRead(stream, bytes, reply);
  }
}

asio::awaitable<void> talk(tcp::socket socket, std::uint16_t port, std::string_view bytes,
                           std::optional<std::filesystem::path> issuers, Reply& reply) {
  try {
    const tcp::endpoint endpoint(asio::ip::address_v4::loopback(), port);
    co_await socket.async_connect(endpoint, asio::use_awaitable);
    if (issuers) {
      co_await talkTls(std::move(socket), bytes, *issuers, reply);
    } else {
      reply.connected = true;
      co_await writeAndRead(socket, bytes, reply);
    }
  } catch (const boost::system::system_error& error) {
    reply.reset = error.code() == asio::error::connection_reset;
  }
}

}  // namespace

int Reply::status() const {
  return bytes.starts_with("HTTP/1.1 ") ? std::stoi(bytes.substr(9, 3)) : 0;
}

std::string Reply::head() const {
  return bytes.substr(0, bytes.find("\r\n\r\n"));
}

std::string Reply::body() const {
  const std::size_t end = bytes.find("\r\n\r\n");
  return end == std::string::npos ? std::string() : bytes.substr(end + 4);
}

Reply roundTrip(std::uint16_t port, std::string_view bytes,
                std::optional<std::filesystem::path> issuers, std::chrono::milliseconds patience) {
  Reply reply;
  bool done = false;
  asio::io_context io;
  asio::co_spawn(io, talk(tcp::socket(io), port, bytes, std::move(issuers), reply),
                 [&done](std::exception_ptr) { done = true; });
  io.run_for(patience);
  reply.timedOut = !done;
  return reply;
}

std::string httpRequest(std::string_view method, std::string_view target, std::string_view body,
                        std::string_view contentType) {
  std::string text(method);
  text.append(" ").append(target).append(" HTTP/1.1\r\nHost: naips.example\r\nContent-Type: ");
  text.append(contentType).append("\r\nConnection: close\r\nContent-Length: ");
  text.append(std::to_string(body.size())).append("\r\n\r\n").append(body);
  return text;
}

}  // namespace simtest
