#include <ktpnaips/platform/http_address.h>
#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <charconv>
#include <system_error>

namespace ktpnaips::http {

namespace {

bool isIpv6Literal(std::string_view host) {
  return host.size() > 2 && host.starts_with('[') && host.ends_with(']') &&
         host.find_first_not_of("0123456789abcdefABCDEF:.", 1) == host.size() - 1;
}

bool standsForItself(unsigned char byte) {
  return byte > ' ' && byte < 0x7f;
}

}  // namespace

bool canBeHostName(std::string_view host) {
  if (isIpv6Literal(host)) return true;
  return std::none_of(host.begin(), host.end(), [](char letter) {
    const bool control = static_cast<unsigned char>(letter) <= ' ' || letter == '\x7f';
    return control ||
           std::string_view(":/?#[]@%\\\"<>^`{|}").find(letter) != std::string_view::npos;
  });
}

std::optional<HostAndPort> readHostAndPort(std::string_view text) {
  const std::size_t colon = text.rfind(':');
  if (colon == std::string_view::npos || colon == 0) return std::nullopt;
  if (!canBeHostName(text.substr(0, colon))) return std::nullopt;
  HostAndPort read{std::string(text.substr(0, colon)), 0};
  const char* const end = text.data() + text.size();
  const auto [stop, failure] = std::from_chars(text.data() + colon + 1, end, read.port);
  if (failure != std::errc() || stop != end || read.port == 0) return std::nullopt;
  return read;
}

std::string encodedPath(std::wstring_view path) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string encoded;
  for (const char letter : text::toUtf8(path)) {
    const auto byte = static_cast<unsigned char>(letter);
    if (standsForItself(byte))
      encoded += letter;
    else
      encoded.append({'%', digits[byte >> 4U], digits[byte & 0x0fU]});
  }
  return encoded.starts_with('/') ? encoded : '/' + encoded;
}

}  // namespace ktpnaips::http
