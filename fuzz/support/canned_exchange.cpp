#include "canned_exchange.h"

#include <ktpnaips/platform/http.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace fuzz {

CannedAnswer& cannedAnswer() {
  static CannedAnswer answer;
  return answer;
}

}  // namespace fuzz

namespace ktpnaips::http {

struct Exchange::Handles {
  std::size_t read = 0;
};

Exchange::Exchange() : handles_(std::make_unique<Handles>()) {}
Exchange::~Exchange() = default;
ErrorCode Exchange::openSession(std::string_view) {
  return 0;
}
ErrorCode Exchange::connect(std::wstring_view, std::uint16_t, const Route&) {
  return 0;
}
ErrorCode Exchange::openRequest(std::string_view, std::wstring_view, std::uint32_t) {
  return 0;
}
void Exchange::addHeaders(std::string_view) {}
void Exchange::setTimeout(Timeout, std::uint32_t) {}
void Exchange::whenSending(std::function<void()>) {}
ErrorCode Exchange::send(std::string_view) {
  return 0;
}
bool Exchange::hasSent() const {
  return true;
}
std::optional<std::string> Exchange::query(Info what) const {
  const fuzz::CannedAnswer& answer = fuzz::cannedAnswer();
  if (what == Info::statusCode) return answer.status;
  if (what == Info::contentType) return answer.contentType;
  return "HTTP/1.1 " + answer.status + "\r\n\r\n";
}
bool Exchange::logInToProxy() {
  return false;
}
std::size_t Exchange::announcedSize() const {
  return 0;
}
std::optional<std::size_t> Exchange::read(char* buffer, std::size_t size) {
  const std::string& body = fuzz::cannedAnswer().body;
  fuzz::cannedAnswer().isRead = true;
  const std::size_t count = body.copy(buffer, size, std::min(handles_->read, body.size()));
  handles_->read += count;
  return count;
}
ErrorCode Exchange::readFailure() const {
  return 0;
}
std::wstring errorMessage(ErrorCode) {
  return {};
}

}  // namespace ktpnaips::http
