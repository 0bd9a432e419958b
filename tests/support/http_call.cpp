#include "tests/support/http_call.h"

#include <algorithm>
#include <vector>

namespace ktpnaips::test {

namespace {

void readBody(http::Exchange& exchange, std::size_t blockSize, HttpOutcome& outcome) {
  std::vector<char> block(blockSize);
  while (const auto count = exchange.read(block.data(), block.size())) {
    outcome.body.append(block.data(), *count);
    if (*count != 0) continue;
    outcome.bodyIsWhole = true;
    return;
  }
}

}  // namespace

http::ErrorCode open(http::Exchange& exchange, const HttpCall& call) {
  if (const auto code = exchange.openSession("Velmora Flight Planner")) return code;
  if (const auto code = exchange.connect(call.host, call.port, call.route)) return code;
  if (const auto code = exchange.openRequest("POST", call.path, call.flags)) return code;
  exchange.addHeaders(
      "Accept: text/*\r\nAccept-Language: en\r\nContent-Type: text/xml; charset=utf-8\r\n"
      "Connection: Keep-Alive\r\n");
  exchange.setTimeout(http::Timeout::connect, call.connectTimeout);
  exchange.setTimeout(http::Timeout::send, call.sendTimeout);
  exchange.setTimeout(http::Timeout::receive, call.receiveTimeout);
  return 0;
}

std::string inOrder(const std::string& request) {
  const std::size_t start = request.find("\r\n") + 2;
  const std::size_t end = request.find("\r\n\r\n") + 2;
  std::vector<std::string> lines;
  for (std::size_t at = start; at < end;) {
    const std::size_t next = request.find("\r\n", at) + 2;
    lines.push_back(request.substr(at, next - at));
    at = next;
  }
  std::sort(lines.begin(), lines.end());
  std::string ordered = request.substr(0, start);
  for (const std::string& line : lines) ordered += line;
  return ordered + request.substr(end);
}

HttpOutcome run(const HttpCall& call) {
  HttpOutcome outcome;
  http::Exchange exchange;
  outcome.code = open(exchange, call);
  if (outcome.code != 0) return outcome;
  for (;;) {
    outcome.code = exchange.send(call.body);
    outcome.isSent = exchange.hasSent();
    if (outcome.code != 0) return outcome;
    outcome.status = exchange.query(http::Info::statusCode).value_or("");
    if (outcome.status != "407" || !exchange.logInToProxy()) break;
    ++outcome.logIns;
  }
  outcome.contentType = exchange.query(http::Info::contentType);
  outcome.rawHeaders = exchange.query(http::Info::rawHeaders);
  readBody(exchange, call.blockSize, outcome);
  return outcome;
}

}  // namespace ktpnaips::test
