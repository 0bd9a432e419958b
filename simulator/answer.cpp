#include "simulator/answer.h"

#include <utility>

namespace sim {
namespace {

std::string_view reason(int status) {
  switch (status) {
    case 200:
      return "OK";
    case 302:
      return "Found";
    case 400:
      return "Bad Request";
    case 404:
      return "Not Found";
    case 405:
      return "Method Not Allowed";
    case 413:
      return "Content Too Large";
    case 415:
      return "Unsupported Media Type";
    default:
      return "Internal Server Error";
  }
}

}  // namespace

Answer plainAnswer(int status, std::string text) {
  Answer answer;
  answer.status = status;
  answer.contentType = "text/plain; charset=utf-8";
  answer.body = std::move(text) + "\n";
  return answer;
}

Delivery deliver(const Answer& answer, bool keepAlive) {
  return {httpHead(answer, answer.body.size(), keepAlive) + answer.body,
          keepAlive ? Ending::keepAlive : Ending::close};
}

std::string httpHead(const Answer& answer, std::size_t contentLength, bool keepAlive) {
  std::string head = "HTTP/1.1 " + std::to_string(answer.status) + " ";
  head.append(reason(answer.status)).append("\r\nServer: naips-simulator\r\n");
  head.append("Content-Type: ").append(answer.contentType).append("\r\n");
  head.append("Content-Length: ").append(std::to_string(contentLength)).append("\r\n");
  for (const auto& [name, value] : answer.headers) {
    head.append(name).append(": ").append(value).append("\r\n");
  }
  return head.append("Connection: ").append(keepAlive ? "keep-alive" : "close").append("\r\n\r\n");
}

}  // namespace sim
