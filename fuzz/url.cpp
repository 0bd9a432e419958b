#include <ktpnaips/core/failure_report.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/platform/http_address.h>
#include <ktpnaips/platform/text.h>

#include "fuzzing.h"

/// The parts of URLs and addresses put together again.
namespace {

void checkParts(const std::wstring& url) {
  std::wstring scheme = L"before";
  std::wstring host = L"before";
  std::wstring path = L"before";
  ktpnaips::winInet::splitURL(url, scheme, host, path);
  const auto slashes = url.find(L"//");
  if (slashes == std::wstring::npos || url.size() > 32767) {
    fuzz::require(scheme.empty() && host.empty() && path.empty(), "what is no URL has no parts");
    return;
  }
  fuzz::require(scheme.size() == slashes, "the scheme ends at the slashes");
  fuzz::require(std::ranges::equal(scheme, url.substr(0, slashes),
                                   [](wchar_t lower, wchar_t c) {
                                     return lower == c ||
                                            (c >= L'A' && c <= L'Z' && lower == c + (L'a' - L'A'));
                                   }),
                "the scheme differs in the case of its letters only");
  fuzz::require(host.find(L'/') == std::wstring::npos, "a host has no slash");
  fuzz::require(path.starts_with(L'/'), "a path starts with a slash");
  const std::wstring rest = url.substr(slashes + 2);
  fuzz::require(host + path == rest || (path == L"/" && host == rest),
                "host and path are what follows the slashes");
}

void checkPath(const std::wstring& text) {
  const std::string path = ktpnaips::http::encodedPath(text);
  fuzz::require(path.starts_with('/'), "a request line's path starts with a slash");
  fuzz::require(std::ranges::all_of(path, [](char c) { return c > ' ' && c < '\x7f'; }),
                "a request line's path is printable ASCII");
  fuzz::require(ktpnaips::http::encodedPath(std::wstring(path.begin(), path.end())) == path,
                "an encoded path stays as it is");
}

void checkAddress(const std::string& text) {
  const auto address = ktpnaips::http::readHostAndPort(text);
  if (!address) return;
  fuzz::require(ktpnaips::http::canBeHostName(address->host), "an address has a host");
  const auto again =
      ktpnaips::http::readHostAndPort(address->host + ':' + std::to_string(address->port));
  fuzz::require(again && again->host == address->host && again->port == address->port,
                "an address that is written reads back");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ktpnaips::setFailureReporter([](std::wstring_view) {});
  const std::string text = fuzz::Input(data, size).rest();
  const std::wstring wide = ktpnaips::text::fromUtf8(text);
  checkParts(wide);
  checkPath(wide);
  checkAddress(text);
  return 0;
}
