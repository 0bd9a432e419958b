#include <ktpnaips/platform/posix/http_peek.h>

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string_view>
#include <system_error>

namespace ktpnaips::http {

namespace {

using Clock = std::chrono::steady_clock;

/// Waits a moment; true when the other side has closed in the meantime.
bool closesSoon(int socket) {
  constexpr int moment = 10;
  pollfd state{socket, POLLRDHUP, 0};
  return ::poll(&state, 1, moment) > 0;
}

/// How many bytes wait on the socket, of which these are copied.
std::size_t copyWaiting(int socket, char* to, std::size_t room) {
  const ssize_t count = ::recv(socket, to, room, MSG_PEEK | MSG_DONTWAIT);
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

/// Takes the sizes out from between the chunks; returns what remains.
std::size_t withoutChunkSizes(char* bytes, std::size_t size) {
  std::size_t kept = 0;
  for (std::size_t at = 0; at < size;) {
    const std::size_t lineEnd = std::string_view(bytes, size).find("\r\n", at);
    std::size_t chunk = 0;
    const auto [stop, failure] = std::from_chars(bytes + at, bytes + size, chunk, 16);
    if (lineEnd == std::string_view::npos || failure != std::errc() || chunk == 0) break;
    const std::size_t start = lineEnd + 2;
    chunk = std::min(chunk, size - start);
    std::memmove(bytes + kept, bytes + start, chunk);
    kept += chunk;
    at = start + chunk + 2;
  }
  return kept;
}

}  // namespace

std::size_t peekAtBody(int socket, const AnswerHeaders& headers, char* to, std::size_t room,
                       std::chrono::milliseconds patience) {
  if (socket < 0) return 0;
  const bool isChunked = headers.isChunked();
  const std::size_t wanted = isChunked ? room : std::min(headers.bodySize().value_or(room), room);
  const auto isWhole = [&](std::size_t size) {
    return size >= wanted || (isChunked && std::string_view(to, size).ends_with("0\r\n\r\n"));
  };
  std::size_t size = copyWaiting(socket, to, wanted);
  for (auto last = Clock::now(); !isWhole(size) && Clock::now() - last < patience;) {
    const bool isLast = closesSoon(socket);
    const std::size_t before = size;
    size = std::max(size, copyWaiting(socket, to, wanted));
    if (isLast) break;
    if (size > before) last = Clock::now();
  }
  return isChunked ? withoutChunkSizes(to, size) : size;
}

}  // namespace ktpnaips::http
