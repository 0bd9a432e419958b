#pragma once

#include <memory>
#include <string>

namespace ktpnaips::test {

/// The system's proxy settings for this process, until the end of the scope: everything through
/// the proxy at "address:port", or, with an empty text, everything direct.
class ScopedProxy {
 public:
  explicit ScopedProxy(const std::string& address);
  ~ScopedProxy();
  ScopedProxy(const ScopedProxy&) = delete;
  ScopedProxy& operator=(const ScopedProxy&) = delete;

 private:
  struct Saved;

  std::unique_ptr<Saved> saved_;
};

}  // namespace ktpnaips::test
