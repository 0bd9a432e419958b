#include "simulator/connection.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/ssl/stream.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/detect_ssl.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/ssl.hpp>
#include <boost/system/system_error.hpp>
#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace sim {
namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;

using PlainStream = beast::tcp_stream;
using TlsStream = asio::ssl::stream<beast::tcp_stream>;
using Parser = http::request_parser<http::string_body>;

constexpr std::chrono::seconds patience{120};
constexpr std::size_t longestRequest = 16 * 1024 * 1024;

PlainStream& plainLayer(PlainStream& stream) {
  return stream;
}
PlainStream& plainLayer(TlsStream& stream) {
  return stream.next_layer();
}

ReceivedRequest received(const Parser::value_type& message, bool secure) {
  ReceivedRequest request;
  request.secure = secure;
  request.method = std::string(message.method_string());
  request.target = std::string(message.target());
  for (const auto& field : message) {
    request.headers.emplace_back(field.name_string(), field.value());
  }
  request.body = message.body();
  return request;
}

template <class Stream>
asio::awaitable<void> sendBytes(Stream& stream, const std::string& bytes) {
  const asio::const_buffer data = asio::buffer(bytes);
  co_await asio::async_write(stream, data, asio::use_awaitable);
}

template <class Stream>
asio::awaitable<void> readRequest(Stream& stream, beast::flat_buffer& buffer, Parser& parser) {
  parser.body_limit(longestRequest);
  co_await http::async_read_header(stream, buffer, parser, asio::use_awaitable);
  if (beast::iequals(parser.get()[http::field::expect], "100-continue")) {
    const std::string goOn = "HTTP/1.1 100 Continue\r\n\r\n";
    co_await sendBytes(stream, goOn);
  }
  co_await http::async_read(stream, buffer, parser, asio::use_awaitable);
}

void reset(PlainStream& stream) {
  stream.socket().set_option(asio::socket_base::linger(true, 0));
  stream.socket().close();
}

asio::awaitable<void> waitForClient(PlainStream& stream) {
  stream.expires_never();
  char ignored[512];
  for (;;) {
    const asio::mutable_buffer space = asio::buffer(ignored);
    co_await stream.async_read_some(space, asio::use_awaitable);
  }
}

asio::awaitable<void> closeDown(PlainStream& stream) {
  stream.socket().shutdown(asio::ip::tcp::socket::shutdown_both);
  co_return;
}

asio::awaitable<void> closeDown(TlsStream& stream) {
  co_await stream.async_shutdown(asio::use_awaitable);
}

template <class Stream>
asio::awaitable<void> end(Stream& stream, const Delivery& delivery) {
  switch (delivery.ending) {
    case Ending::keepAlive:
      break;
    case Ending::close:
      co_await closeDown(stream);
      break;
    case Ending::reset:
      reset(plainLayer(stream));
      break;
    case Ending::stall:
      co_await waitForClient(plainLayer(stream));
      break;
  }
}

// The refusal of what is no HTTP request; nothing for a connection that has ended.
Delivery refusalOf(const boost::system::error_code& error) {
  if (error == http::error::body_limit) {
    return deliver(plainAnswer(413, "The request is too long"), false);
  }
  if (error.category() == make_error_code(http::error::bad_method).category() &&
      error != http::error::end_of_stream && error != http::error::partial_message) {
    return deliver(plainAnswer(400, "This is no HTTP request: " + error.message()), false);
  }
  return {{}, Ending::close};
}

template <class Stream>
asio::awaitable<Delivery> exchange(Stream& stream, beast::flat_buffer& buffer,
                                   const ServerCallbacks& callbacks, bool secure) {
  Parser parser;
  boost::system::error_code failed;
  try {
    co_await readRequest(stream, buffer, parser);
  } catch (const boost::system::system_error& error) {
    failed = error.code();
  }
  if (failed) {
    co_return refusalOf(failed);
  }
  co_return callbacks.answer(received(parser.get(), secure), parser.get().keep_alive());
}

template <class Stream>
asio::awaitable<void> serve(Stream& stream, beast::flat_buffer& buffer,
                            const ServerCallbacks& callbacks, bool secure) {
  Delivery delivery;
  do {
    plainLayer(stream).expires_after(patience);
    delivery = co_await exchange(stream, buffer, callbacks, secure);
    co_await sendBytes(stream, delivery.bytes);
    co_await end(stream, delivery);
  } while (delivery.ending == Ending::keepAlive);
}

asio::awaitable<void> serveTls(PlainStream plain, beast::flat_buffer& buffer,
                               asio::ssl::context& tls, const ServerCallbacks& callbacks) {
  TlsStream stream(std::move(plain), tls);
  const asio::const_buffer begun = buffer.cdata();
  const std::size_t used =
      co_await stream.async_handshake(asio::ssl::stream_base::server, begun, asio::use_awaitable);
  buffer.consume(used);
  co_await serve(stream, buffer, callbacks, true);
}

}  // namespace

asio::awaitable<void> serveConnection(asio::ip::tcp::socket socket, asio::ssl::context& tls,
                                      const ServerCallbacks& callbacks) {
  try {
    PlainStream stream(std::move(socket));
    stream.expires_after(patience);
    beast::flat_buffer buffer;
    const bool secure = co_await beast::async_detect_ssl(stream, buffer, asio::use_awaitable);
    if (secure) {
      co_await serveTls(std::move(stream), buffer, tls, callbacks);
    } else {
      co_await serve(stream, buffer, callbacks, false);
    }
  } catch (const boost::system::system_error&) {
    // The client went away, or does not trust the certificate.
  }
}

}  // namespace sim
