#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The parts of an address, read alike on every platform.
namespace ktpnaips::http {

struct HostAndPort {
  std::string host;  ///< an IPv6 address in its brackets
  std::uint16_t port = 0;
};

/// True for a host's name or address; a port, an account or a path would be parts of a URL.
bool canBeHostName(std::string_view host);

/// The parts of "host:port"; nothing when the text is none.
std::optional<HostAndPort> readHostAndPort(std::string_view text);

/// A path as a request line has it: what cannot stand there in its percent encoding, "/" in front.
std::string encodedPath(std::wstring_view path);

}  // namespace ktpnaips::http
