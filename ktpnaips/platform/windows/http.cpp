#include <ktpnaips/platform/http.h>

#include <ktpnaips/platform/http_address.h>
#include <ktpnaips/platform/lasting.h>
#include <ktpnaips/platform/proxy_account.h>
#include <ktpnaips/platform/windows/system_text.h>
#include <ktpnaips/platform/windows/wininet_account.h>

#include <windows.h>

#include <wininet.h>

#include <array>
#include <chrono>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace ktpnaips::http {
namespace {

class InternetHandle {
 public:
  InternetHandle() noexcept = default;
  InternetHandle(const InternetHandle&) = delete;
  InternetHandle& operator=(const InternetHandle&) = delete;
  ~InternetHandle() { close(); }
  /// Takes over what a call opened; returns 0, or the call's error when it failed.
  ErrorCode open(HINTERNET handle) noexcept {
    close();
    handle_ = handle;
    return handle != nullptr ? ERROR_SUCCESS : GetLastError();
  }
  [[nodiscard]] HINTERNET get() const noexcept { return handle_; }

 private:
  void close() noexcept {
    if (handle_ != nullptr) InternetCloseHandle(std::exchange(handle_, nullptr));
  }

  HINTERNET handle_ = nullptr;
};

HINTERNET newSession(const std::string& agent, DWORD accessType) {
  return InternetOpenA(agent.c_str(), accessType, nullptr, nullptr, 0);
}

constexpr DWORD addOrReplace = HTTP_ADDREQ_FLAG_ADD | HTTP_ADDREQ_FLAG_REPLACE;

void addLines(HINTERNET request, std::string_view lines) {
  HttpAddRequestHeadersA(request, lines.data(), static_cast<DWORD>(lines.size()), addOrReplace);
}

std::string hostHeader(const std::string& host, std::uint16_t port, std::uint32_t flags) {
  const bool isSchemesOwn = port == ((flags & secure) != 0 ? 443 : 80);
  return "Host: " + host + (isSchemesOwn ? "" : ":" + std::to_string(port)) + "\r\n";
}

/// Whether a call ended so before there was a connection.
bool isConnectionFailure(ErrorCode code) {
  constexpr ErrorCode secureFailure = 12175;  // which older headers do not name
  switch (code) {
    case ERROR_INTERNET_INVALID_URL:
    case ERROR_INTERNET_UNRECOGNIZED_SCHEME:
    case ERROR_INTERNET_NAME_NOT_RESOLVED:
    case ERROR_INTERNET_INCORRECT_HANDLE_TYPE:
    case ERROR_INTERNET_CANNOT_CONNECT:
    case ERROR_INTERNET_SEC_CERT_DATE_INVALID:
    case ERROR_INTERNET_SEC_CERT_CN_INVALID:
    case ERROR_INTERNET_INVALID_CA:
    case ERROR_INTERNET_SEC_CERT_ERRORS:
    case ERROR_INTERNET_SEC_CERT_NO_REV:
    case ERROR_INTERNET_SEC_CERT_REV_FAILED:
    case ERROR_INTERNET_SEC_INVALID_CERT:
    case ERROR_INTERNET_SEC_CERT_REVOKED:
    case secureFailure:
      return true;
    default:
      return false;
  }
}

/// The places that have answered, from each of which a connection may have been kept. A call tries
/// that one first, and says of a new one why it failed.
class KeptConnections {
 public:
  void note(const std::string& place) {
    const std::lock_guard lock(mutex_);
    answered_[place] = Clock::now();
  }
  [[nodiscard]] bool mayHaveOneTo(const std::string& place) const {
    constexpr auto longerThanKept = std::chrono::minutes(5);
    const std::lock_guard lock(mutex_);
    const auto found = answered_.find(place);
    return found != answered_.end() && Clock::now() - found->second < longerThanKept;
  }

 private:
  using Clock = std::chrono::steady_clock;
  mutable std::mutex mutex_;
  std::map<std::string, Clock::time_point> answered_;
};

KeptConnections& keptConnections() {
  static platform::Lasting<KeptConnections> kept;
  return *kept;
}

}  // namespace

/// In the order of opening: they are closed the other way round.
struct Exchange::Handles {
  InternetHandle session;
  InternetHandle connection;
  InternetHandle request;
  std::string agent;
  std::string host;
  std::uint16_t port = 0;
  bool isRedirected = false;  // the connection goes elsewhere than to the host
  std::string target;         // where the connection goes, with its port
  std::function<void()> whenSending;
  bool hasSent = false;
  ProxyLogIns logIns;

  /// Where its connection is kept afterwards: those to proxies serve any host.
  [[nodiscard]] std::string place() const { return isViaProxy(request.get()) ? "proxy" : target; }
};

Exchange::Exchange() : handles_(std::make_unique<Handles>()) {}

Exchange::~Exchange() = default;

ErrorCode Exchange::openSession(std::string_view agent) {
  handles_->agent = agent;
  return handles_->session.open(newSession(handles_->agent, INTERNET_OPEN_TYPE_PRECONFIG));
}

ErrorCode Exchange::connect(std::wstring_view host, std::uint16_t port, const Route& route) {
  HostAndPort target{toAnsi(host), port};
  if (target.host.empty()) return ERROR_INVALID_PARAMETER;
  handles_->host = target.host;
  handles_->port = port;
  handles_->isRedirected = !route.connectTo.empty();
  if (handles_->isRedirected) {
    const auto named = readHostAndPort(toAnsi(route.connectTo));
    if (!named) return ERROR_INTERNET_INVALID_URL;
    target = *named;
    const ErrorCode error =
        handles_->session.open(newSession(handles_->agent, INTERNET_OPEN_TYPE_DIRECT));
    if (error != ERROR_SUCCESS) return error;
  }
  handles_->target = target.host + ':' + std::to_string(target.port);
  return handles_->connection.open(InternetConnectA(handles_->session.get(), target.host.c_str(),
                                                    target.port, nullptr, nullptr,
                                                    INTERNET_SERVICE_HTTP, 0, 0));
}

ErrorCode Exchange::openRequest(std::string_view verb, std::wstring_view path,
                                std::uint32_t flags) {
  const ErrorCode error = handles_->request.open(
      HttpOpenRequestA(handles_->connection.get(), std::string(verb).c_str(),
                       encodedPath(path).c_str(), "HTTP/1.1", nullptr, nullptr, flags, 0));
  if (error == ERROR_SUCCESS && handles_->isRedirected) {
    addLines(handles_->request.get(), hostHeader(handles_->host, handles_->port, flags));
  }
  return error;
}

void Exchange::addHeaders(std::string_view lines) {
  addLines(handles_->request.get(), lines);
}

void Exchange::setTimeout(Timeout which, std::uint32_t milliseconds) {
  DWORD time = milliseconds;
  InternetSetOptionA(handles_->request.get(), static_cast<DWORD>(which), &time, sizeof time);
}

void Exchange::whenSending(std::function<void()> notify) {
  handles_->whenSending = std::move(notify);
}

ErrorCode Exchange::send(std::string_view body) {
  handles_->hasSent = false;
  // Redirected, it stands in a header line that is this half's own.
  if (handles_->isRedirected && !canBeHostName(handles_->host) &&
      !readHostAndPort(handles_->host)) {
    return ERROR_INTERNET_NAME_NOT_RESOLVED;
  }
  // The call takes the body as what it could change, but does not.
  void* const bytes =
      const_cast<char*>(body.data());  // NOLINT(cppcoreguidelines-pro-type-const-cast)
  if (handles_->whenSending) handles_->whenSending();
  const BOOL sent =
      HttpSendRequestA(handles_->request.get(), nullptr, 0, bytes, static_cast<DWORD>(body.size()));
  const ErrorCode error = sent != 0 ? ERROR_SUCCESS : GetLastError();
  handles_->hasSent = true;
  const std::string place = handles_->place();
  if (error == ERROR_SUCCESS) keptConnections().note(place);
  handles_->hasSent = !isConnectionFailure(error) || keptConnections().mayHaveOneTo(place);
  return error;
}

bool Exchange::hasSent() const {
  const bool isAskedByProxy =
      query(Info::statusCode) == "407" && isViaProxy(handles_->request.get());
  return handles_->hasSent && !isAskedByProxy;
}

std::optional<std::string> Exchange::query(Info what) const {
  std::array<char, longestQueryValue + 1> buffer{};
  auto length = static_cast<DWORD>(buffer.size());
  DWORD index = 0;
  if (HttpQueryInfoA(handles_->request.get(), static_cast<DWORD>(what), buffer.data(), &length,
                     &index) == 0) {
    return std::nullopt;
  }
  return std::string(buffer.data(), length);
}

bool Exchange::logInToProxy() {
  const HINTERNET request = handles_->request.get();
  if (!isViaProxy(request)) return false;
  if (hasProxyLogIn()) {
    return setProxyAccount(handles_->session.get(), request, handles_->logIns, handles_->host);
  }
  return InternetErrorDlg(GetDesktopWindow(), request, ERROR_INTERNET_INCORRECT_PASSWORD,
                          FLAGS_ERROR_UI_FILTER_FOR_ERRORS | FLAGS_ERROR_UI_FLAGS_CHANGE_OPTIONS |
                              FLAGS_ERROR_UI_FLAGS_GENERATE_DATA,
                          nullptr) == ERROR_INTERNET_FORCE_RETRY;
}

std::size_t Exchange::announcedSize() const {
  return 0;
}

std::optional<std::size_t> Exchange::read(char* buffer, std::size_t size) {
  DWORD length = 0;
  if (InternetReadFile(handles_->request.get(), buffer, static_cast<DWORD>(size), &length) == 0) {
    return std::nullopt;
  }
  return length;
}

ErrorCode Exchange::readFailure() const {
  return ERROR_SUCCESS;
}

std::wstring errorMessage(ErrorCode code) {
  return systemText(FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_FROM_SYSTEM,
                    GetModuleHandleA("wininet.dll"), code);
}

}  // namespace ktpnaips::http
