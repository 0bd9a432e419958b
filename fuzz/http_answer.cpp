#include <ktpnaips/platform/posix/http_answer.h>
#include <ktpnaips/platform/posix/http_peek.h>

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <optional>

#include "fuzzing.h"

/// The header lines of answers and, behind a NUL, the body of a refusal: a server chooses them
/// freely.
namespace {

using ktpnaips::http::AnswerHeaders;
using ktpnaips::http::Info;

/// What is copied of a body behind these headers.
std::string copied(const AnswerHeaders& headers, const std::string& body) {
  std::array<int, 2> ends{};
  fuzz::require(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) == 0, "there are sockets");
  fuzz::require(::write(ends[1], body.data(), body.size()) == static_cast<ssize_t>(body.size()),
                "the body fits");
  ::close(ends[1]);
  std::array<char, 1000> room{};
  const std::size_t size = ktpnaips::http::peekAtBody(ends[0], headers, room.data(), room.size(),
                                                      std::chrono::milliseconds(0));
  ::close(ends[0]);
  fuzz::require(size <= room.size(), "no more than there is room for");
  return {room.data(), size};
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::string head = input.before('\0');
  const std::string body = input.rest().substr(0, 10'000);
  fuzz::Input lines(reinterpret_cast<const std::uint8_t*>(head.data()), head.size());
  AnswerHeaders headers;
  while (!lines.isEmpty()) {
    const bool wasComplete = headers.complete();
    const std::string line = lines.before('\n') + '\n';
    headers.add(line);
    fuzz::require(!wasComplete || headers.complete() || line.starts_with("HTTP/"),
                  "only another answer follows the end of one");
    for (const Info what : {Info::contentType, Info::statusCode, Info::rawHeaders}) {
      const auto value = headers.query(what);
      fuzz::require(!value || headers.complete(), "nothing is told before the end");
      fuzz::require(
          !value || what == Info::statusCode || value->size() <= ktpnaips::http::longestQueryValue,
          "a value that does not fit is left out");
    }
    fuzz::require(!headers.complete() || !headers.statusCode().starts_with('1'),
                  "an interim answer is passed over");
  }
  if (body.empty()) return 0;
  const std::string seen = copied(headers, body);
  fuzz::require(headers.isChunked() ? seen.size() <= body.size() : body.starts_with(seen),
                "what is copied is of the body");
  return 0;
}
