#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace ktpnaips {

/// One call of the service, as an observer is told of it: as a rule when it has ended. What it
/// refers to is there for as long as the observer runs.
class ServiceCall {
 public:
  std::wstring_view requestName;  ///< as in "authenticate-rqs"
  std::wstring_view url;          ///< where it was posted to
  bool changes = false;           ///< whether it changes something at the service, as a filing does
  std::size_t bytesSent = 0;      ///< of the request document
  std::size_t bytesReceived = 0;  ///< of the answer's body
  std::string status;             ///< the HTTP status, as in "200"; empty when nothing answered
  std::string contentType;        ///< as the answer says it, or empty
  std::string_view failure;  ///< in place of an answer or its body, the step that failed and why
  std::chrono::microseconds untilAnswer{};  ///< from the start to the answer's headers; or 0
  std::chrono::microseconds untilEnd{};     ///< from the start to the end of the answer or failure

  /// The document that was posted, its passwords masked; copied when it is asked for.
  [[nodiscard]] std::string request() const;
  /// The answer's body, passwords that it repeats masked; copied when it is asked for.
  [[nodiscard]] std::string answer() const;

 private:
  friend class CallWatch;

  std::string_view request_;
  std::string_view answer_;
};

/// Is told of each call, on the thread that makes it, before the answer is looked into. What it
/// throws is reported as an unexpected failure and changes nothing about the call.
using CallObserver = std::function<void(const ServiceCall& call)>;

/// Installs the observer for the whole process, from any thread; an empty function removes it. A
/// call under way tells the one that was there when it started.
void setCallObserver(CallObserver observer);

/// As `setCallObserver`, for one who is told of each call that reaches the service, right before
/// the first byte of the request goes out (on Windows before the attempt to send it): from here on
/// nobody knows whether what it asks for is done, until its response says so. Told again when the
/// request is sent again, because a proxy wanted an account first. Name, URL, document and
/// `changes` are known by then.
void setSendingObserver(CallObserver observer);

}  // namespace ktpnaips
