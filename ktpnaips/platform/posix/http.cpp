#include <ktpnaips/platform/http.h>
#include <ktpnaips/platform/http_address.h>
#include <ktpnaips/platform/posix/http_errors.h>
#include <ktpnaips/platform/posix/http_proxy.h>
#include <ktpnaips/platform/posix/http_transfer.h>
#include <ktpnaips/platform/proxy_account.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/thread_state.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>
#include <vector>

namespace ktpnaips::http {

namespace {

std::unique_ptr<Transfer>& keptTransfer() {
  setUpLibcurl();
  return platform::threadState<std::unique_ptr<Transfer>>();
}

std::unique_ptr<Transfer> takeTransfer() {
  std::unique_ptr<Transfer> taken = std::move(keptTransfer());
  return taken ? std::move(taken) : std::make_unique<Transfer>();
}

void giveBack(std::unique_ptr<Transfer> transfer) {
  transfer->stop();
  if (!keptTransfer()) keptTransfer() = std::move(transfer);
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
  bool hasTried = false;  // to send by the transfer, which keeps the figures of the last call
  ProxyLogIns logIns;

  /// Once for the exchange: a log-in adds to it.
  ErrorCode chooseProxy() {
    if (hasTried || !settings.connectTo.empty()) return 0;
    ProxyChoice choice = environmentProxy(scheme, host);
    if (!choice.brokenVariable.empty())
      return error::fail(error::invalidUrl, "that of the proxy in " + choice.brokenVariable);
    settings.proxy = std::move(choice.proxy);
    return 0;
  }
  /// Whether the answer is a proxy's wish for an account, and not one of the service.
  [[nodiscard]] bool isAskedByProxy() const {
    if (!hasTried || !settings.proxy || !settings.proxy->speaksHttp) return false;
    const bool hasTunnel = scheme == "https" && transfer->isBehindTunnel();
    return !hasTunnel && transfer->answer().query(Info::statusCode) == "407";
  }
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
  if (settings.connectTo.empty() || readHostAndPort(settings.connectTo)) return 0;
  return error::fail(error::invalidUrl,
                     "'" + settings.connectTo + "' is not an address and a port as in host:443");
}

ErrorCode Exchange::openRequest(std::string_view verb, std::wstring_view path,
                                std::uint32_t flags) {
  RequestSettings& settings = handles_->settings;
  handles_->scheme = (flags & RequestFlag::secure) != 0 ? "https" : "http";
  settings.verb = verb;
  settings.url = handles_->scheme + "://" + handles_->host;
  if (!readHostAndPort(handles_->host)) settings.url += ':' + std::to_string(handles_->port);
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

void Exchange::whenSending(std::function<void()> notify) {
  handles_->settings.whenSending = std::move(notify);
}

ErrorCode Exchange::send(std::string_view body) {
  error::forgetFailure();
  if (!handles_->transfer || handles_->settings.url.empty())
    return error::fail(error::incorrectHandleType, {});
  const bool isRedirected = !handles_->settings.connectTo.empty();
  if (!canBeHostName(handles_->host) && !(isRedirected && readHostAndPort(handles_->host)))
    return error::fail(error::nameNotResolved, "'" + handles_->host + "' is not a host name");
  if (const ErrorCode code = handles_->chooseProxy()) return code;
  handles_->hasTried = true;
  return handles_->transfer->send(handles_->settings, body);
}

bool Exchange::hasSent() const {
  return handles_->hasTried && handles_->transfer->hasSent() && !handles_->isAskedByProxy();
}

std::optional<std::string> Exchange::query(Info what) const {
  return handles_->transfer ? handles_->transfer->answer().query(what) : std::nullopt;
}

bool Exchange::logInToProxy() {
  if (!handles_->isAskedByProxy()) return false;
  Proxy& proxy = *handles_->settings.proxy;
  const auto given = handles_->logIns.next(text::fromUtf8(proxy.host));
  if (!given) return false;
  const bool digest = (handles_->transfer->offeredProxyLogIns() & CURLAUTH_DIGEST) != 0;
  proxy.account = ProxyAccount{text::toUtf8(given->user), text::toUtf8(given->password),
                               digest ? CURLAUTH_DIGEST : CURLAUTH_BASIC};
  return true;
}

std::size_t Exchange::announcedSize() const {
  return handles_->transfer ? handles_->transfer->announcedSize() : 0;
}

std::optional<std::size_t> Exchange::read(char* buffer, std::size_t size) {
  return handles_->transfer ? handles_->transfer->read(buffer, size) : std::nullopt;
}

ErrorCode Exchange::readFailure() const {
  return handles_->transfer ? handles_->transfer->readFailure() : 0;
}

}  // namespace ktpnaips::http
