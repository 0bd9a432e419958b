#pragma once

#include <utility>  // what Asio of Boost 1.74 does not include itself

#include <boost/asio/awaitable.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl/context.hpp>

#include "simulator/server.h"

namespace sim {

// Serves one connection to its end.
boost::asio::awaitable<void> serveConnection(boost::asio::ip::tcp::socket socket,
                                             boost::asio::ssl::context& tls,
                                             const ServerCallbacks& callbacks);

}  // namespace sim
