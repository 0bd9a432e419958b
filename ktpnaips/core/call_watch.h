#pragma once

#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/core/outcome.h>
#include <ktpnaips/core/transport.h>

#include <chrono>
#include <memory>
#include <string_view>

namespace ktpnaips {

/// Takes down one call for its observers; does nothing when there are none.
class CallWatch {
 public:
  /// The call starts. What is given outlives the watch.
  CallWatch(std::wstring_view requestName, std::wstring_view url, std::string_view document,
            Effect effect);

  /// The first byte of the request is about to go out.
  void sending();
  /// The answer's headers are there.
  void answered(const winInet::Answer& answer);
  /// The call is over.
  void ended(const winInet::Answer& answer);

 private:
  [[nodiscard]] std::chrono::microseconds sinceStart() const;
  void tell(const CallObserver& observer) const;

  std::shared_ptr<const CallObserver> observer_;
  std::shared_ptr<const CallObserver> sendingObserver_;
  std::chrono::steady_clock::time_point start_;
  ServiceCall call_;
};

}  // namespace ktpnaips
