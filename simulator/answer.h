#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sim {

inline constexpr std::string_view xmlContentType = "text/xml; charset=utf-8";

struct Answer {
  int status = 200;
  std::string contentType{xmlContentType};
  std::vector<std::pair<std::string, std::string>> headers;  // besides length, type, connection
  std::string body;
};

Answer plainAnswer(int status, std::string text);

// What happens to the connection when the bytes are out.
enum class Ending {
  keepAlive,  // the next request is awaited
  close,
  reset,  // aborted with a TCP reset
  stall   // held open in silence until the client goes away
};

// The bytes that go out for one request.
struct Delivery {
  std::string bytes;
  Ending ending = Ending::keepAlive;
};

Delivery deliver(const Answer& answer, bool keepAlive);

// Status line and headers with the empty line, declaring a body of that length.
std::string httpHead(const Answer& answer, std::size_t contentLength, bool keepAlive);

}  // namespace sim
