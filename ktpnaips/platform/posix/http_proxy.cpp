#include <ktpnaips/platform/posix/http_answer.h>
#include <ktpnaips/platform/posix/http_proxy.h>

#include <arpa/inet.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <system_error>
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

/// The first of the variables that is set; empty when none is.
std::string firstSet(const std::vector<std::string>& variables) {
  const auto isSet = [](const std::string& name) { return !environment(name).empty(); };
  const auto found = std::ranges::find_if(variables, isSet);
  return found != variables.end() ? *found : std::string();
}

// HTTP_PROXY is not asked: in a CGI program it is a header of the client's.
std::vector<std::string> proxyVariables(std::string_view scheme) {
  const std::string own = std::string(scheme) + "_proxy";
  if (scheme == "http") return {own, "all_proxy", "ALL_PROXY"};
  return {own, upper(own), "all_proxy", "ALL_PROXY"};
}

std::optional<std::string> part(CURLU* url, CURLUPart which, unsigned flags = 0) {
  char* text = nullptr;
  const CURLUcode result = curl_url_get(url, which, &text, flags);
  if (result == CURLUE_OUT_OF_MEMORY) throw std::bad_alloc();
  if (result != CURLUE_OK) return std::nullopt;
  const std::unique_ptr<char, void (*)(void*)> owner(text, curl_free);
  return std::string(text);
}

std::optional<ProxyAccount> accountIn(CURLU* url) {
  const auto user = part(url, CURLUPART_USER, CURLU_URLDECODE);
  const auto password = part(url, CURLUPART_PASSWORD, CURLU_URLDECODE);
  if (!user && !password) return std::nullopt;
  return ProxyAccount{user.value_or(""), password.value_or("")};
}

std::optional<Proxy> parseProxy(const std::string& text) {
  const Url url(curl_url());
  if (!url) throw std::bad_alloc();
  constexpr unsigned flags = CURLU_NON_SUPPORT_SCHEME | CURLU_GUESS_SCHEME;
  if (curl_url_set(url.get(), CURLUPART_URL, text.c_str(), flags) != CURLUE_OK) return std::nullopt;
  Proxy proxy;
  proxy.account = accountIn(url.get());
  curl_url_set(url.get(), CURLUPART_USER, nullptr, 0);
  curl_url_set(url.get(), CURLUPART_PASSWORD, nullptr, 0);
  proxy.host = part(url.get(), CURLUPART_HOST).value_or("");
  proxy.url = part(url.get(), CURLUPART_URL).value_or("");
  proxy.speaksHttp = part(url.get(), CURLUPART_SCHEME).value_or("").starts_with("http");
  return proxy;
}

/// An address as its bytes; empty for other text.
std::vector<std::byte> addressOf(const std::string& text) {
  std::vector<std::byte> bytes(sizeof(in_addr));
  if (::inet_pton(AF_INET, text.c_str(), bytes.data()) == 1) return bytes;
  bytes.resize(sizeof(in6_addr));
  if (::inet_pton(AF_INET6, text.c_str(), bytes.data()) == 1) return bytes;
  return {};
}

std::string withoutBrackets(std::string_view host) {
  const bool hasBrackets = host.starts_with('[') && host.ends_with(']');
  return std::string(hasBrackets ? host.substr(1, host.size() - 2) : host);
}

/// Whether the entry is the address, or a range with it.
bool holdsAddress(std::string_view entry, const std::vector<std::byte>& address) {
  const std::size_t slash = entry.find('/');
  const std::vector<std::byte> base = addressOf(withoutBrackets(entry.substr(0, slash)));
  if (base.size() != address.size()) return false;
  std::size_t bits = 8 * base.size();
  if (slash != std::string_view::npos) {
    std::size_t given = 0;
    const char* const end = entry.data() + entry.size();
    const auto [stop, failure] = std::from_chars(entry.data() + slash + 1, end, given);
    if (failure != std::errc() || stop != end || given == 0 || given > bits) return false;
    bits = given;
  }
  const std::size_t whole = bits / 8;
  const auto wholeBytes = static_cast<std::ptrdiff_t>(whole);
  if (!std::equal(base.begin(), base.begin() + wholeBytes, address.begin())) return false;
  const std::size_t unused = 8 - bits % 8;
  return unused == 8 || ((base[whole] ^ address[whole]) >> unused) == std::byte{};
}

/// Whether the entry is the name, or a domain above it.
bool holdsName(std::string_view entry, std::string_view name) {
  if (entry.ends_with('.')) entry.remove_suffix(1);
  if (entry.starts_with('.')) entry.remove_prefix(1);
  if (entry.empty() || entry.size() > name.size()) return false;
  const std::size_t rest = name.size() - entry.size();
  return sameName(name.substr(rest), entry) && (rest == 0 || name[rest - 1] == '.');
}

}  // namespace

ProxyChoice environmentProxy(std::string_view scheme, std::string_view host) {
  const std::string variable = firstSet(proxyVariables(scheme));
  if (variable.empty()) return {};
  if (isExcepted(host, environment(firstSet({"no_proxy", "NO_PROXY"})))) return {};
  auto proxy = parseProxy(environment(variable));
  if (!proxy) return {std::nullopt, variable};
  return {std::move(proxy), {}};
}

bool isExcepted(std::string_view host, std::string_view list) {
  if (list == "*") return true;
  if (host.ends_with('.')) host.remove_suffix(1);
  const std::vector<std::byte> address = addressOf(withoutBrackets(host));
  constexpr std::string_view separators = ", \t";
  while (!list.empty()) {
    const std::size_t end = std::min(list.find_first_of(separators), list.size());
    const std::string_view entry = list.substr(0, end);
    if (address.empty() ? holdsName(entry, host) : holdsAddress(entry, address)) return true;
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return false;
}

}  // namespace ktpnaips::http
