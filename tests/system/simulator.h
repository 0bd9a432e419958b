#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The simulated service that the test program was started with (`with-simulator`,
/// `with-squid`, `with-nginx`).
namespace simulator {

inline constexpr std::wstring_view user = L"DEMO";
inline constexpr std::wstring_view password = L"demo-pilot";

/// What the script that started the test program says; throws when it says nothing.
std::string environment(const char* name);

/// "address:port" of the service, or of the one that has another certificate, such as "EXPIRED".
std::wstring address(const std::string& certificate = {});

/// The PEM file of the certificate authority of all of them but "UNKNOWN_ISSUER".
std::wstring authorityFile();

/// Makes the system trust that authority, where a file alone does not.
void trustAuthority();

/// "address:port" of the squid beside the test program.
std::string squidAddress();

/// Sends every connection of this process to the simulator and trusts its authority; sets the
/// calling thread's account and mode: 1 is HTTPS; with `overHttp`, the relaying host over HTTP.
void use(bool overHttp = false);

/// Misbehaves in each answer until the end of its life.
class Fault {
 public:
  explicit Fault(std::string_view name);
  ~Fault();
  Fault(const Fault&) = delete;
  Fault& operator=(const Fault&) = delete;
};

/// How many requests to the services the simulator has read to their end.
std::size_t requestCount();

/// The body of the last one.
std::string lastRequest();

}  // namespace simulator
