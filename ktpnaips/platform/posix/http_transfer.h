#pragma once

#include <curl/curl.h>
#include <ktpnaips/platform/http.h>
#include <ktpnaips/platform/posix/http_answer.h>
#include <ktpnaips/platform/posix/http_certificates.h>
#include <ktpnaips/platform/posix/http_proxy.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips::http {

/// The longest headers, provisional answers and all, and the longest body that are read, in bytes.
inline constexpr std::size_t longestHeaders = std::size_t{256} * 1024;
inline constexpr std::size_t longestBody = std::size_t{256} * 1024 * 1024;

/// How long a phase may go without progress.
struct TimeLimits {
  std::chrono::milliseconds connect{60'000};
  std::chrono::milliseconds send{30'000};
  std::chrono::milliseconds receive{30'000};
};

/// Everything that decides about a request but its body.
struct RequestSettings {
  std::string url;
  std::string verb;
  std::string agent;
  std::vector<std::string> headerLines;  ///< without line ends
  std::string connectTo;                 ///< "address:port"; or empty
  CertificatePolicy certificates;
  std::optional<Proxy> proxy;  ///< none for a direct connection, whatever the environment says
  TimeLimits limits;
  std::function<void()> whenSending;  ///< called before the first byte of the request; or empty
};

/// Sets libcurl up for the process unless that has been done. Throws when it fails.
void setUpLibcurl();

/// A libcurl handle that carries one request at a time, each over a connection of its own. It keeps
/// the loaded issuers, the TLS session tickets and its buffers from one request to the next.
class Transfer {
 public:
  Transfer();
  ~Transfer();
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  /// Whether libcurl is one that the certificate policy can be given to.
  [[nodiscard]] bool usable() const { return opensslIsThere(easy_.get()); }
  /// Sends a request and waits for the headers of its answer. `settings` must outlive the transfer.
  /// So must `body`.
  ErrorCode send(const RequestSettings& settings, std::string_view body);
  [[nodiscard]] std::size_t announcedSize() const;
  std::optional<std::size_t> read(char* to, std::size_t size);
  /// Once reading has failed: the code of an answer that is too long, otherwise 0.
  [[nodiscard]] ErrorCode readFailure() const;
  /// Whether a byte of the request went out on a connection on which it can reach the service: the
  /// request proper, not a proxy's CONNECT and not the handshake of TLS.
  [[nodiscard]] bool hasSent() const;
  /// Whether the answer came from behind the tunnel of a proxy, if there was one to be set up.
  [[nodiscard]] bool isBehindTunnel() const { return ready_; }
  /// Ends the request that is under way, if any, and closes its connection.
  void stop();
  [[nodiscard]] const AnswerHeaders& answer() const { return answer_; }
  /// The kinds of log-in that the proxy offered with its 407.
  [[nodiscard]] unsigned long offeredProxyLogIns() const;

 private:
  using Clock = std::chrono::steady_clock;
  struct EasyCleanup {
    void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
  };
  struct MultiCleanup {
    void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
  };
  struct ListCleanup {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
  };
  using List = std::unique_ptr<curl_slist, ListCleanup>;
  enum class Phase { connecting, sending, receiving };
  /// What has happened so far; two that are equal are a time without progress.
  struct Progress {
    Phase phase = Phase::connecting;
    curl_off_t sent = 0;
    std::uint64_t received = 0;
    bool operator==(const Progress&) const = default;
  };

  void prepare(const RequestSettings& settings, std::string_view body);
  void startOver();
  void begin();
  void setRequest(const RequestSettings& settings, std::string_view body);
  void setConnection(const RequestSettings& settings);
  void setProxy(const RequestSettings& settings);
  void setCallbacks();

  void runUntil(const std::function<bool()>& reached);
  void perform();
  void takeOutcome();
  void noteProgress();
  [[nodiscard]] Progress progress() const;
  [[nodiscard]] std::chrono::milliseconds limit() const;
  /// How long nothing has gone forward.
  [[nodiscard]] std::chrono::milliseconds quiet() const;
  void timeOut();
  [[nodiscard]] bool answerIsFinal() const;
  [[nodiscard]] bool proxyRefusedTunnel() const;
  [[nodiscard]] ErrorCode failure() const;
  void refill();
  void readRefusal();
  [[nodiscard]] int connectedSocket() const;
  [[nodiscard]] std::size_t buffered() const { return filled_ - taken_; }
  [[nodiscard]] std::int64_t bytesSent() const;
  [[nodiscard]] std::int64_t number(CURLINFO what) const;

  static std::size_t onHeader(char* data, std::size_t size, std::size_t count, void* self);
  static std::size_t onBody(char* data, std::size_t size, std::size_t count, void* self);
  static int onSocket(void* self, curl_socket_t socket, curlsocktype);
  static int onReady(void* self, char*, char*, int, int);

  std::unique_ptr<CURL, EasyCleanup> easy_;
  std::unique_ptr<CURLM, MultiCleanup> multi_;
  List headers_;
  List proxyHeaders_;
  List connectTo_;
  std::array<char, CURL_ERROR_SIZE> errorText_{};
  bool ticketsIgnoreDates_ = false;
  unsigned lostTickets_ = 0;  ///< before the handle was made

  TimeLimits limits_;
  const std::function<void()>* whenSending_ = nullptr;
  std::int64_t sentBefore_ = 0;  ///< bytes of the handle's requests before the request proper
  curl_off_t bodySize_ = 0;
  AnswerHeaders answer_;
  Progress progress_;
  Clock::time_point lastProgress_;
  std::uint64_t received_ = 0;
  std::size_t headerBytes_ = 0;
  std::size_t bodyBytes_ = 0;
  std::string_view excess_;  ///< what is too long of the answer; empty while nothing is
  std::exception_ptr thrown_;
  std::array<curl_socket_t, 4> sockets_{};  ///< the last that were opened, -1 for none
  CURLcode result_ = CURLE_OK;
  bool running_ = false;
  bool ready_ = false;  ///< tunnel and TLS are set up, the request proper begins
  bool paused_ = false;
  bool proxyIsSecure_ = false;

  std::unique_ptr<char[]> buffer_;
  std::size_t filled_ = 0;
  std::size_t taken_ = 0;
};

}  // namespace ktpnaips::http
