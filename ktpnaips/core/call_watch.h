#pragma once

#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/core/transport.h>

#include <chrono>
#include <memory>
#include <string_view>

namespace ktpnaips {

/// Takes down one call for the observer; does nothing when there is none.
class CallWatch {
 public:
  /// The call starts. What is given outlives the watch.
  CallWatch(std::wstring_view requestName, std::wstring_view url, std::string_view document);

  /// The answer's headers are there.
  void answered(const winInet::Answer& answer);
  /// The call is over.
  void ended(const winInet::Answer& answer);

 private:
  [[nodiscard]] std::chrono::microseconds sinceStart() const;

  std::shared_ptr<const CallObserver> observer_;
  std::chrono::steady_clock::time_point start_;
  ServiceCall call_;
};

}  // namespace ktpnaips
