#include "tests/support/raw_server.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <openssl/ssl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <utility>

namespace ktpnaips::test {

namespace {

constexpr int patience = 20'000;

sockaddr_in loopback(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

int connectOrBind(int (*call)(int, const sockaddr*, socklen_t), int socket, std::uint16_t port) {
  const sockaddr_in address = loopback(port);
  return call(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

int newSocket() {
  const int made = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (made < 0) throw std::runtime_error("no socket");
  return made;
}

int bound() {
  const int made = newSocket();
  if (connectOrBind(::bind, made, 0) != 0) throw std::runtime_error("no free port");
  return made;
}

std::uint16_t portOf(int socket) {
  sockaddr_in address{};
  socklen_t length = sizeof address;
  ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &length);
  return ntohs(address.sin_port);
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

Peer::Peer(int socket) : socket_(socket) {}

Peer::~Peer() {
  if (tls_ != nullptr) {
    SSL_shutdown(tls_);
    SSL_free(tls_);
  }
  if (socket_ >= 0) ::close(socket_);
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
  pollfd ready{socket_, POLLIN, 0};
  if ((tls_ == nullptr || SSL_pending(tls_) == 0) && ::poll(&ready, 1, patience) != 1)
    throw std::runtime_error("nothing came");
  const auto count = tls_ != nullptr
                         ? SSL_read(tls_, buffer.data(), static_cast<int>(buffer.size()))
                         : static_cast<int>(::recv(socket_, buffer.data(), buffer.size(), 0));
  if (count <= 0) return 0;
  pending_.append(buffer.data(), static_cast<std::size_t>(count));
  return static_cast<std::size_t>(count);
}

void Peer::waitForBytes() const {
  pollfd ready{socket_, POLLIN, 0};
  if (::poll(&ready, 1, patience) != 1) throw std::runtime_error("nothing came");
}

void Peer::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto count =
        tls_ != nullptr
            ? SSL_write(tls_, bytes.data(), static_cast<int>(bytes.size()))
            : static_cast<int>(::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL));
    if (count <= 0) throw std::runtime_error("not written");
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

bool Peer::waitForClose(std::chrono::milliseconds atMost) {
  const auto end = std::chrono::steady_clock::now() + atMost;
  std::array<char, 4096> buffer{};
  while (std::chrono::steady_clock::now() < end) {
    pollfd ready{socket_, POLLIN, 0};
    if (::poll(&ready, 1, 50) == 1 && ::recv(socket_, buffer.data(), buffer.size(), 0) <= 0)
      return true;
  }
  return false;
}

void Peer::reset() {
  const linger now{1, 0};
  ::setsockopt(socket_, SOL_SOCKET, SO_LINGER, &now, sizeof now);
  ::close(std::exchange(socket_, -1));
}

void Peer::startTls(SSL_CTX* context) {
  SSL* const tls = SSL_new(context);
  SSL_set_fd(tls, socket_);
  if (SSL_accept(tls) != 1) {
    SSL_free(tls);
    throw std::runtime_error("no TLS");
  }
  tls_ = tls;
}

std::string Peer::serverName() const {
  const char* const name = SSL_get_servername(tls_, TLSEXT_NAMETYPE_host_name);
  return name != nullptr ? name : "";
}

bool Peer::resumed() const {
  return SSL_session_reused(tls_) == 1;
}

RawServer::RawServer(std::vector<Script> scripts)
    : scripts_(std::move(scripts)), listener_(bound()), port_(portOf(listener_)) {
  ::listen(listener_, 16);
  thread_ = std::thread([this] { serve(); });
}

RawServer::~RawServer() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
    ::shutdown(listener_, SHUT_RDWR);
    if (current_ >= 0) ::shutdown(current_, SHUT_RDWR);
  }
  thread_.join();
  ::close(listener_);
}

std::wstring RawServer::address() const {
  return loopbackAddress(port_);
}

void RawServer::serve() {
  sigset_t brokenPipe;
  sigemptyset(&brokenPipe);
  sigaddset(&brokenPipe, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
  for (;;) {
    const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (socket < 0) return;
    {
      const std::lock_guard lock(mutex_);
      if (stopping_) {
        ::close(socket);
        return;
      }
      current_ = ::dup(socket);  // of its own, so that the script may close the socket
    }
    serveOne(socket);
    const std::lock_guard lock(mutex_);
    ::close(std::exchange(current_, -1));
  }
}

void RawServer::serveOne(int socket) {
  const int index = connections_++;
  Peer peer(socket);
  try {
    scripts_[std::min(static_cast<std::size_t>(index), scripts_.size() - 1)](peer);
  } catch (const std::exception&) {
    return;  // the client went away, which its test sees from its own side
  }
}

std::uint16_t unusedPort() {
  const int socket = bound();
  const std::uint16_t port = portOf(socket);
  ::close(socket);
  return port;
}

FullListener::FullListener() {
  sockets_.push_back(bound());
  port_ = portOf(sockets_.front());
  ::listen(sockets_.front(), 0);
  for (int i = 0; i < 4; ++i) {
    sockets_.push_back(newSocket());
    ::fcntl(sockets_.back(), F_SETFL, O_NONBLOCK);
    connectOrBind(::connect, sockets_.back(), port_);
  }
}

FullListener::~FullListener() {
  for (const int socket : sockets_) ::close(socket);
}

std::wstring FullListener::address() const {
  return loopbackAddress(port_);
}

}  // namespace ktpnaips::test
