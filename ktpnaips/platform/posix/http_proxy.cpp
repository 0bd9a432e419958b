#include <curl/curl.h>
#include <ktpnaips/platform/posix/http_proxy.h>
#include <openssl/evp.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <memory>
#include <new>
#include <vector>

namespace ktpnaips::http {

namespace {

struct UrlCleanup {
  void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
using Url = std::unique_ptr<CURLU, UrlCleanup>;

std::string environment(const std::string& name) {
  const char* const value = std::getenv(name.c_str());
  return value != nullptr ? value : "";
}

std::string upper(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
  return name;
}

// HTTP_PROXY is not asked: in a CGI program it is a header of the client's.
std::vector<std::string> proxyVariables(std::string_view scheme) {
  const std::string own = std::string(scheme) + "_proxy";
  if (scheme == "http") return {own, "all_proxy", "ALL_PROXY"};
  return {own, upper(own), "all_proxy", "ALL_PROXY"};
}

std::string part(CURLU* url, CURLUPart which) {
  char* text = nullptr;
  if (curl_url_get(url, which, &text, 0) != CURLUE_OK) return {};
  const std::unique_ptr<char, void (*)(void*)> owner(text, curl_free);
  return text;
}

std::optional<Proxy> parseProxy(const std::string& text) {
  const Url url(curl_url());
  if (!url) throw std::bad_alloc();
  constexpr unsigned flags = CURLU_NON_SUPPORT_SCHEME | CURLU_GUESS_SCHEME;
  if (curl_url_set(url.get(), CURLUPART_URL, text.c_str(), flags) != CURLUE_OK) return std::nullopt;
  curl_url_set(url.get(), CURLUPART_USER, nullptr, 0);
  curl_url_set(url.get(), CURLUPART_PASSWORD, nullptr, 0);
  return Proxy{part(url.get(), CURLUPART_HOST), part(url.get(), CURLUPART_URL)};
}

}  // namespace

std::optional<Proxy> environmentProxy(std::string_view scheme) {
  for (const std::string& name : proxyVariables(scheme))
    if (const std::string value = environment(name); !value.empty()) return parseProxy(value);
  return std::nullopt;
}

std::string basicProxyAuthorization(const std::string& user, const std::string& password) {
  const std::string account = user + ':' + password;
  const std::vector<unsigned char> plain(account.begin(), account.end());
  std::vector<unsigned char> encoded(4 * ((plain.size() + 2) / 3) + 1);
  const int length = EVP_EncodeBlock(encoded.data(), plain.data(), static_cast<int>(plain.size()));
  return "Proxy-Authorization: Basic " + std::string(encoded.begin(), encoded.begin() + length);
}

}  // namespace ktpnaips::http
