#include <ktpnaips/platform/windows/wininet_account.h>

#include <ktpnaips/platform/windows/system_text.h>

#include <cstddef>
#include <string>
#include <vector>

namespace ktpnaips::http {
namespace {

/// The first proxy in the session's list, as in "http=host:port https=host:port"; empty when there
/// is none.
std::string proxyOf(HINTERNET session) {
  DWORD size = 0;
  InternetQueryOptionA(session, INTERNET_OPTION_PROXY, nullptr, &size);
  if (size < sizeof(INTERNET_PROXY_INFO)) return {};
  std::vector<INTERNET_PROXY_INFO> buffer(size / sizeof(INTERNET_PROXY_INFO) + 1);
  if (InternetQueryOptionA(session, INTERNET_OPTION_PROXY, buffer.data(), &size) == 0 ||
      buffer.front().lpszProxy == nullptr) {
    return {};
  }
  // The ANSI call stores ANSI text behind a pointer that is declared for either kind.
  std::string list(reinterpret_cast<const char*>(buffer.front().lpszProxy));  // NOLINT
  return list.substr(0, list.find_first_of("; "));
}

std::string hostOf(std::string proxy) {
  if (const auto equals = proxy.find('='); equals != std::string::npos) proxy.erase(0, equals + 1);
  if (const auto slashes = proxy.find("//"); slashes != std::string::npos) {
    proxy.erase(0, slashes + 2);
  }
  return proxy.substr(0, proxy.rfind(':'));
}

bool setText(HINTERNET request, DWORD option, const std::wstring& text) {
  std::string value = toAnsi(text);
  return InternetSetOptionA(request, option, value.data(), static_cast<DWORD>(value.size())) != 0;
}

}  // namespace

bool isViaProxy(HINTERNET request) {
  DWORD flags = 0;
  DWORD size = sizeof flags;
  return InternetQueryOptionA(request, INTERNET_OPTION_REQUEST_FLAGS, &flags, &size) != 0 &&
         (flags & INTERNET_REQFLAG_VIA_PROXY) != 0;
}

bool setProxyAccount(HINTERNET session, HINTERNET request, ProxyLogIns& logIns,
                     const std::string& host) {
  const std::string proxy = hostOf(proxyOf(session));
  const auto account = logIns.next(fromAnsi(proxy.empty() ? host : proxy));
  return account && setText(request, INTERNET_OPTION_PROXY_USERNAME, account->user) &&
         setText(request, INTERNET_OPTION_PROXY_PASSWORD, account->password);
}

}  // namespace ktpnaips::http
