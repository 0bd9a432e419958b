#pragma once

namespace ktpnaips::platform {

/// Keeps the calling thread from being cancelled (`pthread_cancel`) until the end of the scope:
/// what the library and the libraries below it have begun, they end.
class WithoutCancellation {
 public:
  WithoutCancellation() noexcept;
  WithoutCancellation(const WithoutCancellation&) = delete;
  WithoutCancellation& operator=(const WithoutCancellation&) = delete;
  ~WithoutCancellation();

 private:
  int before_ = 0;
};

}  // namespace ktpnaips::platform
