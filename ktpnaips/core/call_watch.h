#pragma once

#include <ktpnaips/core/call_observer.h>

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace ktpnaips {

/// Takes down one call for the observer; does nothing when there is none.
class CallWatch {
 public:
  /// The call starts. What is given outlives the watch.
  CallWatch(std::wstring_view requestName, std::wstring_view url, std::string_view document);

  /// The answer's headers are there; the first `headerSize` bytes of the result will be raw
  /// headers.
  void answered(std::string_view status, std::size_t headerSize);
  /// The call is over and returns `result`: the answer, or the text of a failure.
  void ended(std::string_view result);

 private:
  [[nodiscard]] std::chrono::microseconds sinceStart() const;

  std::shared_ptr<const CallObserver> observer_;
  std::chrono::steady_clock::time_point start_;
  ServiceCall call_;
  std::optional<std::size_t> headerSize_;  // once there is an answer
};

}  // namespace ktpnaips
