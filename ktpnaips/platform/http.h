#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// One HTTP exchange in the steps of the Windows Internet API, with its error codes on every
/// platform.
namespace ktpnaips::http {

/// A code of the Windows Internet API (12002 time-out, 12007 name not resolved, ...); 0 is success.
using ErrorCode = std::uint32_t;

/// Request flags, with their values in the Windows Internet API.
enum RequestFlag : std::uint32_t {
  noFlags = 0,
  ignoreCertNameInvalid = 0x00001000,
  ignoreCertDateInvalid = 0x00002000,
  keepConnection = 0x00400000,
  secure = 0x00800000,
  reload = 0x80000000,
};

/// What can be asked of an answer, with the values of the Windows Internet API.
enum class Info : std::uint32_t { contentType = 1, statusCode = 19, rawHeaders = 22 };

enum class Timeout : std::uint32_t { connect = 2, send = 5, receive = 6 };

/// Where a connection goes and whom it trusts, when not as the system has it.
struct Route {
  std::wstring connectTo;  ///< "address:port" for the TCP connection, without a proxy; or empty
  std::wstring caFile;     ///< trusted issuers (PEM) in place of the system's; or empty
};

/// The longest value that a query returns, in bytes; a longer one is as good as absent.
inline constexpr std::size_t longestQueryValue = 1023;

/// One exchange: the steps in the order of their declaration, each at most once, but for `send`
/// after a proxy log-in. Handles that were opened are closed on destruction: request, connection,
/// session. Blocks the calling thread; belongs to one thread.
class Exchange {
 public:
  Exchange();
  ~Exchange();
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;

  /// Opens a session with the system's preconfigured proxy settings.
  ErrorCode openSession(std::string_view agent);
  ErrorCode connect(std::wstring_view host, std::uint16_t port, const Route& route);
  ErrorCode openRequest(std::string_view verb, std::wstring_view path, std::uint32_t flags);
  /// Adds or replaces request headers: lines, each ended by CR LF.
  void addHeaders(std::string_view lines);
  void setTimeout(Timeout which, std::uint32_t milliseconds);
  /// Calls `notify` inside `send`, right before a first byte of the request may go to the service.
  /// On Windows that is when `send` starts, as WinINet does not tell.
  void whenSending(std::function<void()> notify);
  /// Sends the request with its body and waits until the answer's headers are there. The body must
  /// outlive the exchange: an early answer comes before the last of it is on its way.
  ErrorCode send(std::string_view body);
  /// Whether the last `send` may have brought the service a part of the request. Nothing reaches it
  /// when its name is not known, a connection or a certificate is refused, or a proxy refuses the
  /// tunnel or answers 407: a proxy that wants an account passes nothing on.
  ///
  /// On POSIX it is exact: libcurl counts the request's bytes on the connection to the service, or
  /// to a proxy that passes them on. On Windows the failure tells: a code that says that there was
  /// no connection means no, unless a kept connection to the same place may have been tried before;
  /// everything else means yes.
  [[nodiscard]] bool hasSent() const;
  /// The value as text, or nothing when the answer has none or it is longer than
  /// `longestQueryValue`.
  [[nodiscard]] std::optional<std::string> query(Info what) const;
  /// Asks the person for the account of the proxy that answered 407 (`setProxyLogIn`); true when
  /// the request shall be sent again with it. False when no proxy is in use.
  bool logInToProxy();
  /// How many bytes the body is said to have, as far as that is known without a further step; 0
  /// otherwise. Only a hint.
  [[nodiscard]] std::size_t announcedSize() const;
  /// Reads at most `size` bytes of the body into `buffer` and says how many; 0 at the end. Nothing
  /// when reading failed.
  std::optional<std::size_t> read(char* buffer, std::size_t size);
  /// After a read that failed: why what was read before is of no use; 0 when it is to be taken as
  /// it is.
  [[nodiscard]] ErrorCode readFailure() const;

 private:
  struct Handles;
  std::unique_ptr<Handles> handles_;
};

/// The platform's text for a code, with any line end that it carries; empty when it has none.
std::wstring errorMessage(ErrorCode code);

}  // namespace ktpnaips::http
