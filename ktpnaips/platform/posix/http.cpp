#include <ktpnaips/platform/http.h>
#include <ktpnaips/platform/posix/http_errors.h>
#include <ktpnaips/platform/posix/http_proxy.h>
#include <ktpnaips/platform/posix/http_transfer.h>
#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <system_error>
#include <utility>
#include <vector>

namespace ktpnaips::http {

namespace {

std::unique_ptr<Transfer>& keptTransfer() {
  thread_local std::unique_ptr<Transfer> kept;
  return kept;
}

std::unique_ptr<Transfer> takeTransfer() {
  std::unique_ptr<Transfer> taken = std::move(keptTransfer());
  return taken ? std::move(taken) : std::make_unique<Transfer>();
}

void giveBack(std::unique_ptr<Transfer> transfer) {
  transfer->stop();
  if (!keptTransfer()) keptTransfer() = std::move(transfer);
}

bool isIpv6Literal(std::string_view host) {
  return host.size() > 2 && host.starts_with('[') && host.ends_with(']') &&
         host.find_first_not_of("0123456789abcdefABCDEF:.", 1) == host.size() - 1;
}

// Anything else, a port too, would be a part of the URL and not of the name.
bool canBeHostName(std::string_view host) {
  if (isIpv6Literal(host)) return true;
  return std::none_of(host.begin(), host.end(), [](char letter) {
    const bool control = (letter >= 0 && letter <= ' ') || letter == '\x7f';
    return control ||
           std::string_view(":/?#[]@%\\\"<>^`{|}").find(letter) != std::string_view::npos;
  });
}

bool isPort(std::string_view text) {
  std::uint16_t port = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), port);
  return failure == std::errc() && end == text.data() + text.size() && port != 0;
}

/// What may stand in a URL and a Host header when the connection goes elsewhere anyway.
bool canBeHostAndPort(std::string_view text) {
  const std::size_t colon = text.rfind(':');
  return colon != std::string_view::npos && canBeHostName(text.substr(0, colon)) &&
         isPort(text.substr(colon + 1));
}

bool isAddressAndPort(std::string_view text) {
  return !text.starts_with(':') && canBeHostAndPort(text);
}

bool standsForItself(unsigned char byte) {
  return byte > ' ' && byte < 0x7f;
}

// What cannot stand in a request line is sent in its percent encoding.
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

std::string_view nameOf(std::string_view line) {
  return line.substr(0, line.find(':'));
}

void addOrReplace(std::vector<std::string>& lines, std::string_view line) {
  const auto same = std::find_if(lines.begin(), lines.end(), [line](std::string_view each) {
    return sameName(nameOf(each), nameOf(line));
  });
  if (same != lines.end())
    *same = line;
  else
    lines.emplace_back(line);
}

}  // namespace

struct Exchange::Handles {
  std::unique_ptr<Transfer> transfer;
  RequestSettings settings;
  std::string host;
  std::uint16_t port = 0;
  std::string scheme;
};

Exchange::Exchange() : handles_(std::make_unique<Handles>()) {}

Exchange::~Exchange() {
  if (handles_->transfer) giveBack(std::move(handles_->transfer));
}

ErrorCode Exchange::openSession(std::string_view agent) {
  error::forgetFailure();
  handles_->transfer = takeTransfer();
  handles_->settings.agent = agent;
  if (handles_->transfer->usable()) return 0;
  return error::fail(error::internalError, "libcurl must be one that is built with OpenSSL");
}

ErrorCode Exchange::connect(std::wstring_view host, std::uint16_t port, const Route& route) {
  if (host.empty()) return error::fail(error::invalidParameter, {});
  RequestSettings& settings = handles_->settings;
  handles_->host = text::toUtf8(host);
  handles_->port = port;
  settings.connectTo = text::toUtf8(route.connectTo);
  settings.certificates.caFile = text::toUtf8(route.caFile);
  if (settings.connectTo.empty() || isAddressAndPort(settings.connectTo)) return 0;
  return error::fail(error::invalidUrl,
                     "'" + settings.connectTo + "' is not an address and a port as in host:443");
}

ErrorCode Exchange::openRequest(std::string_view verb, std::wstring_view path,
                                std::uint32_t flags) {
  RequestSettings& settings = handles_->settings;
  handles_->scheme = (flags & RequestFlag::secure) != 0 ? "https" : "http";
  settings.verb = verb;
  settings.url = handles_->scheme + "://" + handles_->host;
  if (!canBeHostAndPort(handles_->host)) settings.url += ':' + std::to_string(handles_->port);
  settings.url += encodedPath(path);
  settings.certificates.ignoreDates = (flags & RequestFlag::ignoreCertDateInvalid) != 0;
  settings.certificates.ignoreName = (flags & RequestFlag::ignoreCertNameInvalid) != 0;
  return 0;
}

void Exchange::addHeaders(std::string_view lines) {
  while (!lines.empty()) {
    const std::size_t end = std::min(lines.find("\r\n"), lines.size());
    if (end != 0) addOrReplace(handles_->settings.headerLines, lines.substr(0, end));
    lines.remove_prefix(std::min(end + 2, lines.size()));
  }
}

void Exchange::setTimeout(Timeout which, std::uint32_t milliseconds) {
  TimeLimits& limits = handles_->settings.limits;
  const std::chrono::milliseconds time(milliseconds);
  switch (which) {
    case Timeout::connect:
      limits.connect = time;
      break;
    case Timeout::send:
      limits.send = time;
      break;
    case Timeout::receive:
      limits.receive = time;
      break;
  }
}

ErrorCode Exchange::send(std::string_view body) {
  error::forgetFailure();
  if (!handles_->transfer || handles_->settings.url.empty())
    return error::fail(error::incorrectHandleState, {});
  const bool isRedirected = !handles_->settings.connectTo.empty();
  if (!canBeHostName(handles_->host) && !(isRedirected && canBeHostAndPort(handles_->host)))
    return error::fail(error::nameNotResolved, "'" + handles_->host + "' is not a host name");
  return handles_->transfer->send(handles_->settings, body);
}

std::optional<std::string> Exchange::query(Info what) const {
  return handles_->transfer ? handles_->transfer->answer().query(what) : std::nullopt;
}

bool Exchange::logInToProxy() {
  if (!handles_->transfer) return false;
  RequestSettings& settings = handles_->settings;
  const std::optional<Proxy> proxy =
      settings.connectTo.empty() ? environmentProxy(handles_->scheme) : std::nullopt;
  const auto given = askForProxyAccount(proxy ? proxy->host : handles_->host);
  if (!given) return false;
  const std::string user = text::toUtf8(given->user);
  const std::string password = text::toUtf8(given->password);
  const bool digest = (handles_->transfer->offeredProxyLogIns() & CURLAUTH_DIGEST) != 0;
  if (proxy)
    settings.proxyAccount =
        ProxyAccount{proxy->url, user, password, digest ? CURLAUTH_DIGEST : CURLAUTH_BASIC};
  else  // a gateway that asks like a proxy
    addOrReplace(settings.headerLines, basicProxyAuthorization(user, password));
  return true;
}

std::optional<std::size_t> Exchange::read(char* buffer, std::size_t size) {
  return handles_->transfer ? handles_->transfer->read(buffer, size) : std::nullopt;
}

}  // namespace ktpnaips::http
