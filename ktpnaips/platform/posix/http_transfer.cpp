#include <ktpnaips/platform/posix/http_errors.h>
#include <ktpnaips/platform/posix/http_option.h>
#include <ktpnaips/platform/posix/http_peek.h>
#include <ktpnaips/platform/posix/http_transfer.h>

#include <openssl/crypto.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

// Earlier releases write to a closed TLS connection without MSG_NOSIGNAL.
static_assert(LIBCURL_VERSION_NUM >= 0x075800, "libcurl 7.88 or newer is needed");

namespace ktpnaips::http {

namespace {

constexpr std::size_t bufferSize = std::size_t{256} * 1024;
// As much as waits on a socket without being read.
constexpr std::size_t longestRefusal = std::size_t{32} * 1024;

CURL* newEasy() {
  CURL* const easy = curl_easy_init();
  if (easy == nullptr) throw std::bad_alloc();
  return easy;
}

CURLM* newMulti() {
  setUpLibcurl();
  CURLM* const multi = curl_multi_init();
  if (multi == nullptr) throw std::bad_alloc();
  return multi;
}

long asLong(std::chrono::milliseconds time) {
  return static_cast<long>(
      std::min<std::int64_t>(time.count(), std::numeric_limits<std::int32_t>::max()));
}

bool named(const std::vector<std::string>& lines, std::string_view name) {
  return std::any_of(lines.begin(), lines.end(), [name](std::string_view line) {
    return sameName(line.substr(0, line.find(':')), name);
  });
}

// libcurl reads "name:" as a header to leave out, "name;" as one without a value.
std::string asListed(const std::string& line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string::npos || !trimBlanks(line.substr(colon + 1)).empty()) return line;
  return line.substr(0, colon) + ';';
}

template <class List>
void append(List& list, const std::string& line) {
  curl_slist* const longer = curl_slist_append(list.get(), line.c_str());
  if (longer == nullptr) throw std::bad_alloc();
  static_cast<void>(list.release());
  list.reset(longer);
}

bool isReset(long systemError) {
  return systemError == ECONNRESET || systemError == EPIPE;
}

ErrorCode codeOf(CURLcode result, long systemError) {
  switch (result) {
    case CURLE_OPERATION_TIMEDOUT:
      return error::timeout;
    case CURLE_URL_MALFORMAT:
      return error::invalidUrl;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
      return error::nameNotResolved;
    case CURLE_COULDNT_CONNECT:
    case CURLE_PROXY:
      return error::cannotConnect;
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
      return isReset(systemError) ? error::connectionReset : error::connectionAborted;
    case CURLE_GOT_NOTHING:
    case CURLE_PARTIAL_FILE:
      return error::connectionAborted;
    case CURLE_OK:
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_WEIRD_SERVER_REPLY:
    case CURLE_BAD_CONTENT_ENCODING:
#if LIBCURL_VERSION_NUM >= 0x080600
    case CURLE_TOO_LARGE:
#endif
      return error::invalidServerResponse;
    case CURLE_SSL_CONNECT_ERROR:
      return isReset(systemError) ? error::connectionReset : error::secureChannelError;
    case CURLE_SSL_CIPHER:
    case CURLE_SSL_CERTPROBLEM:
      return error::secureChannelError;
    case CURLE_SSL_CACERT_BADFILE:
      return error::secureFailure;
    default:
      return error::internalError;
  }
}

}  // namespace

void setUpLibcurl() {
  static const bool isSetUp = [] {  // tried again when it has thrown
    // Otherwise OpenSSL takes itself apart when the program ends, under the threads that use it.
    OPENSSL_init_crypto(OPENSSL_INIT_NO_ATEXIT, nullptr);
    if (curl_global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) throw std::bad_alloc();
    return true;
  }();
  static_cast<void>(isSetUp);
}

Transfer::Transfer() : buffer_(std::make_unique_for_overwrite<char[]>(bufferSize)) {
  multi_.reset(newMulti());
  easy_.reset(newEasy());
}

Transfer::~Transfer() {
  stop();
}

ErrorCode Transfer::send(const RequestSettings& settings, std::string_view body) {
  ready_ = false;
  prepare(settings, body);
  runUntil([this] { return answerIsFinal(); });
  if (ready_ && answer_.complete()) return 0;
  if (proxyRefusedTunnel()) {
    result_ = CURLE_OK;
    return 0;
  }
  answer_.clear();
  // What libcurl 7.88 says of a header that is longer than it takes.
  if (result_ == CURLE_OUT_OF_MEMORY && ready_) excess_ = "a header is longer than 100 KB";
  if (result_ == CURLE_OUT_OF_MEMORY && !ready_) throw std::bad_alloc();
  return failure();
}

void Transfer::prepare(const RequestSettings& settings, std::string_view body) {
  // A resumed session is not verified again: what a lenient policy let pass must not pass a strict
  // one. The other parts of the policy are part of libcurl's own key.
  const bool ignoresDates = settings.certificates.ignoreDates;
  const bool isUsable = result_ == CURLE_OK && lostTickets_ == lostTickets();
  if (!isUsable || ignoresDates != ticketsIgnoreDates_) startOver();
  ticketsIgnoreDates_ = ignoresDates;
  lostTickets_ = lostTickets();
  begin();
  curl_easy_reset(easy_.get());
  limits_ = settings.limits;
  whenSending_ = &settings.whenSending;
  setRequest(settings, body);
  setConnection(settings);
  setProxy(settings);
  setCallbacks();
  applyPolicy(easy_.get(), settings.certificates);
  if (curl_multi_add_handle(multi_.get(), easy_.get()) != CURLM_OK) throw std::bad_alloc();
  running_ = true;
}

// After a failure libcurl keeps the system's error number, also for failures that have none, and
// the issuers, of which some may be missing: those for which there was no memory, or newer ones.
void Transfer::startOver() {
  stop();
  decltype(multi_) multi(newMulti());
  easy_.reset(newEasy());
  multi_ = std::move(multi);
}

void Transfer::begin() {
  stop();
  answer_.clear();
  progress_ = Progress();
  received_ = 0;
  headerBytes_ = bodyBytes_ = 0;
  excess_ = {};
  sockets_.fill(-1);
  filled_ = taken_ = 0;
  thrown_ = nullptr;
  result_ = CURLE_OK;
  paused_ = false;
  errorText_.front() = '\0';
}

void Transfer::setRequest(const RequestSettings& settings, std::string_view body) {
  CURL* const easy = easy_.get();
  headers_.reset();
  for (const std::string& line : settings.headerLines) append(headers_, asListed(line));
  for (const char* const own : {"Accept", "Content-Type", "Expect"})
    if (!named(settings.headerLines, own)) append(headers_, std::string(own) + ':');
  bodySize_ = static_cast<curl_off_t>(body.size());
  setOption(easy, CURLOPT_URL, settings.url.c_str());
  setOption(easy, CURLOPT_PATH_AS_IS, 1L);
  setOption(easy, CURLOPT_PROTOCOLS_STR, "http,https");
  setOption(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
  setOption(easy, CURLOPT_POST, 1L);
  setOption(easy, CURLOPT_CUSTOMREQUEST, settings.verb.c_str());
  setOption(easy, CURLOPT_USERAGENT, settings.agent.c_str());
  setOption(easy, CURLOPT_HTTPHEADER, headers_.get());
  setOption(easy, CURLOPT_POSTFIELDSIZE_LARGE, bodySize_);
  setOption(easy, CURLOPT_POSTFIELDS, body.empty() ? "" : body.data());
}

void Transfer::setConnection(const RequestSettings& settings) {
  CURL* const easy = easy_.get();
  setOption(easy, CURLOPT_NOSIGNAL, 1L);
  setOption(easy, CURLOPT_QUICK_EXIT, 1L);  // a time-out must not wait for a name server
  setOption(easy, CURLOPT_FRESH_CONNECT, 1L);
  setOption(easy, CURLOPT_FORBID_REUSE, 1L);
  // Of this libcurl makes each address's share; until the connection is there, TLS not counted.
  setOption(easy, CURLOPT_CONNECTTIMEOUT_MS, asLong(limits_.connect));
  connectTo_.reset();
  if (settings.connectTo.empty()) return;
  append(connectTo_, "::" + settings.connectTo);
  setOption(easy, CURLOPT_CONNECT_TO, connectTo_.get());
}

void Transfer::setProxy(const RequestSettings& settings) {
  CURL* const easy = easy_.get();
  proxyHeaders_.reset();
  append(proxyHeaders_, "Proxy-Connection:");
  setOption(easy, CURLOPT_PROXYHEADER, proxyHeaders_.get());
  setOption(easy, CURLOPT_HEADEROPT, static_cast<long>(CURLHEADER_SEPARATE));
  // Empty, so that libcurl does not ask the environment.
  setOption(easy, CURLOPT_NOPROXY, "");
  setOption(easy, CURLOPT_PROXY, settings.proxy ? settings.proxy->url.c_str() : "");
  proxyIsSecure_ = settings.proxy && settings.proxy->url.starts_with("https:");
  if (!settings.proxy || !settings.proxy->account) return;
  const ProxyAccount& account = *settings.proxy->account;
  setOption(easy, CURLOPT_PROXYAUTH, account.scheme);
  setOption(easy, CURLOPT_PROXYUSERNAME, account.user.c_str());
  setOption(easy, CURLOPT_PROXYPASSWORD, account.password.c_str());
}

void Transfer::setCallbacks() {
  CURL* const easy = easy_.get();
  setOption(easy, CURLOPT_ERRORBUFFER, errorText_.data());
  setOption(easy, CURLOPT_HEADERFUNCTION, &Transfer::onHeader);
  setOption(easy, CURLOPT_HEADERDATA, static_cast<void*>(this));
  setOption(easy, CURLOPT_WRITEFUNCTION, &Transfer::onBody);
  setOption(easy, CURLOPT_WRITEDATA, static_cast<void*>(this));
  setOption(easy, CURLOPT_SOCKOPTFUNCTION, &Transfer::onSocket);
  setOption(easy, CURLOPT_SOCKOPTDATA, static_cast<void*>(this));
  setOption(easy, CURLOPT_PREREQFUNCTION, &Transfer::onReady);
  setOption(easy, CURLOPT_PREREQDATA, static_cast<void*>(this));
}

void Transfer::stop() {
  if (running_) curl_multi_remove_handle(multi_.get(), easy_.get());
  running_ = false;
}

void Transfer::runUntil(const std::function<bool()>& reached) {
  lastProgress_ = Clock::now();
  for (;;) {
    perform();
    if (!running_ || reached()) return;
    noteProgress();
    const auto left = limit() - quiet();
    if (left <= std::chrono::milliseconds(0)) return timeOut();
    int ready = 0;
    curl_multi_poll(multi_.get(), nullptr, 0, static_cast<int>(asLong(left)), &ready);
    // A socket takes a little more than its peer does when libcurl tries although it is not ready.
    const bool isStuck = progress_.phase == Phase::sending && ready == 0 && quiet() >= limit();
    if (isStuck) return timeOut();
  }
}

std::chrono::milliseconds Transfer::quiet() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - lastProgress_);
}

void Transfer::perform() {
  int running = 0;
  const CURLMcode code = curl_multi_perform(multi_.get(), &running);
  if (thrown_) {
    stop();
    std::rethrow_exception(std::exchange(thrown_, nullptr));
  }
  if (code == CURLM_OK) return takeOutcome();
  result_ = code == CURLM_OUT_OF_MEMORY ? CURLE_OUT_OF_MEMORY : CURLE_FAILED_INIT;
  stop();
}

void Transfer::takeOutcome() {
  int left = 0;
  while (const CURLMsg* const message = curl_multi_info_read(multi_.get(), &left)) {
    if (message->msg != CURLMSG_DONE) continue;
    result_ = message->data.result;
    return stop();
  }
}

void Transfer::noteProgress() {
  const Progress now = progress();
  if (now == progress_) return;
  // Set while the handle is at work, which libcurl heeds: TLS is none of the connect time-out.
  if (progress_.phase == Phase::connecting && now.phase != Phase::connecting)
    setOption(easy_.get(), CURLOPT_CONNECTTIMEOUT_MS, asLong(std::chrono::hours(24)));
  progress_ = now;
  lastProgress_ = Clock::now();
}

Transfer::Progress Transfer::progress() const {
  Progress now{Phase::sending, number(CURLINFO_SIZE_UPLOAD_T), received_};
  if (ready_)
    now.phase = now.sent >= bodySize_ ? Phase::receiving : Phase::sending;
  else if (connectedSocket() < 0)
    now.phase = Phase::connecting;
  return now;
}

// libcurl's own time of connecting comes only with the end of TLS.
int Transfer::connectedSocket() const {
  const auto found = std::find_if(sockets_.begin(), sockets_.end(), [](int socket) {
    sockaddr_storage peer{};
    socklen_t length = sizeof peer;
    return socket >= 0 && ::getpeername(socket, reinterpret_cast<sockaddr*>(&peer), &length) == 0;
  });
  return found != sockets_.end() ? *found : -1;
}

std::chrono::milliseconds Transfer::limit() const {
  if (progress_.phase == Phase::connecting) return limits_.connect;
  return progress_.phase == Phase::sending ? limits_.send : limits_.receive;
}

void Transfer::timeOut() {
  result_ = CURLE_OPERATION_TIMEDOUT;
  const char* const what = progress_.phase == Phase::connecting ? "no connection within "
                           : progress_.phase == Phase::sending  ? "nothing could be sent for "
                                                                : "nothing was received for ";
  const std::string text = what + std::to_string(limit().count()) + " ms";
  std::copy_n(text.c_str(), text.size() + 1, errorText_.begin());
  stop();
}

// libcurl answers a 407 to its first step of a log-in by itself, and passes that body over.
bool Transfer::answerIsFinal() const {
  return ready_ && answer_.complete() && (answer_.statusCode() != "407" || bodyBytes_ > 0);
}

bool Transfer::proxyRefusedTunnel() const {
  return !ready_ && answer_.complete() && !answer_.statusCode().starts_with('2');
}

ErrorCode Transfer::failure() const {
  if (!excess_.empty()) return readFailure();
  const std::string text = errorText_.front() != '\0' || result_ == CURLE_OK
                               ? errorText_.data()
                               : curl_easy_strerror(result_);
  if (result_ == CURLE_PEER_FAILED_VERIFICATION || certificateWasRefused())
    return certificateRefused(text);
  return error::fail(codeOf(result_, static_cast<long>(number(CURLINFO_OS_ERRNO))), text);
}

std::size_t Transfer::announcedSize() const {
  return static_cast<std::size_t>(
      std::max<std::int64_t>(number(CURLINFO_CONTENT_LENGTH_DOWNLOAD_T), 0));
}

std::optional<std::size_t> Transfer::read(char* to, std::size_t size) {
  if (buffered() == 0) refill();
  const std::size_t count = std::min(size, buffered());
  if (count == 0 && !running_ && result_ != CURLE_OK) return std::nullopt;
  if (count != 0) std::memcpy(to, buffer_.get() + taken_, count);
  taken_ += count;
  return count;
}

ErrorCode Transfer::readFailure() const {
  return excess_.empty() ? 0 : error::fail(error::invalidServerResponse, excess_);
}

bool Transfer::hasSent() const {
  return ready_ && bytesSent() > sentBefore_;
}

std::int64_t Transfer::bytesSent() const {
  return number(CURLINFO_REQUEST_SIZE) + number(CURLINFO_SIZE_UPLOAD_T);
}

void Transfer::refill() {
  filled_ = taken_ = 0;
  if (!running_) return;
  if (std::exchange(paused_, false)) curl_easy_pause(easy_.get(), CURLPAUSE_CONT);
  runUntil([this] { return buffered() > 0; });
}

// libcurl drops the body behind a refusal, so it is copied before. That of a proxy over TLS cannot
// be.
void Transfer::readRefusal() {
  if (proxyIsSecure_) return;
  filled_ = peekAtBody(connectedSocket(), answer_, buffer_.get(), longestRefusal, limits_.receive);
}

unsigned long Transfer::offeredProxyLogIns() const {
  long offered = 0;
  curl_easy_getinfo(easy_.get(), CURLINFO_PROXYAUTH_AVAIL, &offered);
  return static_cast<unsigned long>(offered);
}

std::int64_t Transfer::number(CURLINFO what) const {
  if ((what & CURLINFO_TYPEMASK) == CURLINFO_LONG) {
    long value = 0;
    curl_easy_getinfo(easy_.get(), what, &value);
    return value;
  }
  curl_off_t value = 0;
  curl_easy_getinfo(easy_.get(), what, &value);
  return value;
}

std::size_t Transfer::onHeader(char* data, std::size_t size, std::size_t count, void* self) {
  auto& transfer = *static_cast<Transfer*>(self);
  try {
    ++transfer.received_;
    transfer.headerBytes_ += size * count;
    if (transfer.headerBytes_ > longestHeaders) {
      transfer.excess_ = "its headers are longer than 256 KB";
      return 0;
    }
    if (transfer.answerIsFinal()) return size * count;  // a trailer
    transfer.answer_.add({data, size * count});
    if (transfer.proxyRefusedTunnel()) transfer.readRefusal();
    return size * count;
  } catch (...) {
    transfer.thrown_ = std::current_exception();
    return 0;
  }
}

std::size_t Transfer::onBody(char* data, std::size_t size, std::size_t count, void* self) {
  auto& transfer = *static_cast<Transfer*>(self);
  const std::size_t length = size * count;
  if (length > bufferSize - transfer.filled_) {
    transfer.paused_ = true;
    return CURL_WRITEFUNC_PAUSE;
  }
  transfer.bodyBytes_ += length;
  if (transfer.bodyBytes_ > longestBody) {
    transfer.excess_ = "it is longer than 256 MB";
    return 0;
  }
  std::memcpy(transfer.buffer_.get() + transfer.filled_, data, length);
  transfer.filled_ += length;
  ++transfer.received_;
  return length;
}

int Transfer::onSocket(void* self, curl_socket_t socket, curlsocktype) {
  auto& transfer = *static_cast<Transfer*>(self);
  // The second step of a log-in, which libcurl takes by itself, has a connection of its own.
  if (std::exchange(transfer.ready_, false)) transfer.answer_.clear();
  auto& sockets = transfer.sockets_;
  std::rotate(sockets.begin(), sockets.end() - 1, sockets.end());
  sockets.front() = socket;
  return CURL_SOCKOPT_OK;
}

int Transfer::onReady(void* self, char*, char*, int, int) {
  auto& transfer = *static_cast<Transfer*>(self);
  try {
    transfer.answer_.clear();  // what the proxy said to CONNECT
    transfer.filled_ = 0;
    transfer.sentBefore_ = transfer.bytesSent();
    transfer.ready_ = true;
    if (*transfer.whenSending_) (*transfer.whenSending_)();
    return CURL_PREREQFUNC_OK;
  } catch (...) {
    transfer.thrown_ = std::current_exception();
    return CURL_PREREQFUNC_ABORT;
  }
}

}  // namespace ktpnaips::http
