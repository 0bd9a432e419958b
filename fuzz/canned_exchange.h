#pragma once

#include <ktpnaips/platform/http.h>

#include <algorithm>
#include <string>

/// In place of the platform's HTTP: every request is answered with one text. For targets that are
/// one source each.
namespace fuzz {

struct CannedAnswer {
  std::string status = "200";
  std::string contentType = "text/xml";
  std::string body;
};

inline CannedAnswer& cannedAnswer() {
  static CannedAnswer answer;
  return answer;
}

}  // namespace fuzz

namespace ktpnaips::http {

struct Exchange::Handles {
  std::size_t read = 0;
};

inline Exchange::Exchange() : handles_(std::make_unique<Handles>()) {}
inline Exchange::~Exchange() = default;
inline ErrorCode Exchange::openSession(std::string_view) {
  return 0;
}
inline ErrorCode Exchange::connect(std::wstring_view, std::uint16_t, const Route&) {
  return 0;
}
inline ErrorCode Exchange::openRequest(std::string_view, std::wstring_view, std::uint32_t) {
  return 0;
}
inline void Exchange::addHeaders(std::string_view) {}
inline void Exchange::setTimeout(Timeout, std::uint32_t) {}
inline void Exchange::whenSending(std::function<void()>) {}
inline ErrorCode Exchange::send(std::string_view) {
  return 0;
}
inline bool Exchange::hasSent() const {
  return true;
}
inline std::optional<std::string> Exchange::query(Info what) const {
  const fuzz::CannedAnswer& answer = fuzz::cannedAnswer();
  if (what == Info::statusCode) return answer.status;
  if (what == Info::contentType) return answer.contentType;
  return "HTTP/1.1 " + answer.status + "\r\n\r\n";
}
inline bool Exchange::logInToProxy() {
  return false;
}
inline std::size_t Exchange::announcedSize() const {
  return 0;
}
inline std::optional<std::size_t> Exchange::read(char* buffer, std::size_t size) {
  const std::string& body = fuzz::cannedAnswer().body;
  const std::size_t count = body.copy(buffer, size, std::min(handles_->read, body.size()));
  handles_->read += count;
  return count;
}
inline ErrorCode Exchange::readFailure() const {
  return 0;
}
inline std::wstring errorMessage(ErrorCode) {
  return {};
}

}  // namespace ktpnaips::http
