#include <ktpnaips/core/call_watch.h>
#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace ktpnaips::winInet {
namespace {

constexpr std::string_view agent = "Velmora Flight Planner";
constexpr std::string_view headers =
    "Accept: text/*\r\n"
    "Accept-Language: en\r\n"
    "Content-Type: text/xml; charset=utf-8\r\n"
    "Connection: Keep-Alive\r\n";
constexpr std::size_t longestURL = 32767;

StepFailure stepFailed(std::wstring_view step, http::ErrorCode code) {
  return {step, code, apiErrorText(code)};
}

std::wstring withCode(std::wstring message, std::uint32_t code) {
  constexpr std::wstring_view digits = L"0123456789ABCDEF";
  std::wstring hexadecimal;
  for (auto rest = code; rest != 0 || hexadecimal.empty(); rest /= 16) {
    hexadecimal.insert(hexadecimal.begin(), digits[rest % 16]);
  }
  return message.append(L"  Dec: ")
      .append(std::to_wstring(code))
      .append(L"\tHex: ")
      .append(hexadecimal);
}

/// The first step that failed; nothing when the request is ready to be sent.
std::optional<StepFailure> prepare(http::Exchange& exchange, std::wstring_view url) {
  std::wstring scheme;
  std::wstring host;
  std::wstring path;
  splitURL(url, scheme, host, path);

  if (const auto code = exchange.openSession(agent)) return stepFailed(L"InternetOpen", code);

  const Deployment& deployment = Deployment::current();
  const bool isSecure = scheme == L"https:";
  const std::uint32_t schemeFlags =
      isSecure ? http::secure | http::ignoreCertDateInvalid | http::ignoreCertNameInvalid
               : http::noFlags;
  const std::uint16_t port = isSecure ? 443 : 80;
  if (const auto code = exchange.connect(host, port, {deployment.connectTo, deployment.caFile})) {
    return stepFailed(L"InternetConnect", code);
  }
  if (const auto code =
          exchange.openRequest("POST", path, schemeFlags | http::reload | http::keepConnection)) {
    return stepFailed(L"HttpOpenRequest", code);
  }
  exchange.addHeaders(headers);
  const TimeLimits& limits = timeLimits();
  exchange.setTimeout(http::Timeout::connect, limits.connect);
  exchange.setTimeout(http::Timeout::send, limits.send);
  exchange.setTimeout(http::Timeout::receive, limits.receive);
  return std::nullopt;
}

/// Sends until a proxy is content; false when the answer is a failure.
bool send(http::Exchange& exchange, std::string_view body, Answer& answer) {
  for (;;) {
    answer.status.clear();
    answer.contentType.clear();
    if (const auto code = exchange.send(body)) {
      answer.failure = stepFailed(L"HttpSendRequest", code);
      return false;
    }
    httpQueryInfo(exchange, http::Info::statusCode, answer.status);
    httpQueryInfo(exchange, http::Info::contentType, answer.contentType);
    if (answer.status == "407" && exchange.logInToProxy()) continue;
    if (answer.status != "200" || answer.contentType.find("xml") == std::string::npos) {
      httpQueryInfo(exchange, http::Info::rawHeaders, answer.headers);
    }
    return true;
  }
}

// What a header may make us set aside; larger bodies grow beyond it by doubling.
constexpr std::size_t mostSetAside = 128'000'000;

/// Reads the body or, of one that is too long, why there is none.
void readBody(http::Exchange& exchange, Answer& answer) {
  std::array<char, 2048> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read
  answer.body.reserve(std::min(exchange.announcedSize(), mostSetAside));
  for (;;) {
    const auto read = exchange.read(buffer.data(), buffer.size());
    if (!read || *read == 0) break;
    answer.body.append(buffer.data(), *read);
  }
  if (const auto code = exchange.readFailure()) {
    std::string().swap(answer.body);
    answer.failure = stepFailed(L"InternetReadFile", code);
  }
}

}  // namespace

TimeLimits& timeLimits() {
  static TimeLimits limits;
  return limits;
}

void splitURL(std::wstring_view url, std::wstring& scheme, std::wstring& host, std::wstring& path) {
  scheme.clear();
  host.clear();
  path.clear();
  trapped(inModule(L"splitURL", L"winInet"), [&] {
    if (url.size() > longestURL) throw RuntimeFault(fault::overflow);
    const auto slashes = url.find(L"//");
    if (slashes == std::wstring_view::npos) throw RuntimeFault(fault::invalidCall);
    const std::wstring_view rest = url.substr(slashes + 2);
    const auto pathStart = rest.find(L'/');
    std::wstring lowerScheme(url.substr(0, slashes));
    for (wchar_t& c : lowerScheme) {
      if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
    }
    scheme = std::move(lowerScheme);
    host = rest.substr(0, pathStart);
    path = pathStart == std::wstring_view::npos ? L"/" : rest.substr(pathStart);
  });
}

Answer winInetSend(std::wstring_view url, std::wstring_view requestName, std::string_view body,
                   Effect effect) {
  CallWatch watch(requestName, url, body, effect);
  Answer answer;
  std::optional<http::Exchange> exchange;
  trapped(inModule(L"winInetSend", L"winInet"), [&] {
    exchange.emplace();
    exchange->whenSending([&watch] { watch.sending(); });
    answer.failure = prepare(*exchange, url);
    if (answer.failure || !send(*exchange, body, answer)) return;
    watch.answered(answer);
    readBody(*exchange, answer);
  });
  answer.hasSent = exchange && exchange->hasSent();
  exchange.reset();
  watch.ended(answer);
  return answer;
}

bool httpQueryInfo(const http::Exchange& request, http::Info what, std::string& value) {
  auto found = request.query(what);
  if (!found) return false;
  value = *std::move(found);
  return true;
}

std::wstring apiErrorText(std::uint32_t code) {
  std::wstring message = http::errorMessage(code);
  if (message.empty()) message = L"(No such error)";
  return withCode(std::move(message), code);
}

StepFailure tooLarge(std::wstring_view reason) {
  constexpr http::ErrorCode invalidServerResponse = 12152;
  return {L"InternetReadFile", invalidServerResponse,
          withCode(L"The answer cannot be read (" + std::wstring(reason) + L").\r\n",
                   invalidServerResponse)};
}

}  // namespace ktpnaips::winInet
