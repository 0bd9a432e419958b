#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/core/call_watch.h>
#include <ktpnaips/core/error_text.h>
#include <ktpnaips/core/masking.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/lasting.h>
#include <ktpnaips/platform/text.h>

#include <atomic>
#include <mutex>
#include <utility>

namespace ktpnaips {
namespace {

/// The observer that is installed for the process.
class ObserverSlot {
 public:
  void set(CallObserver observer) {
    auto shared = observer ? std::make_shared<const CallObserver>(std::move(observer)) : nullptr;
    const std::lock_guard lock(mutex_);
    isTaken_.store(shared != nullptr, std::memory_order_relaxed);
    observer_.swap(shared);
  }
  [[nodiscard]] std::shared_ptr<const CallObserver> current() {
    if (!isTaken_.load(std::memory_order_relaxed)) return nullptr;
    const std::lock_guard lock(mutex_);
    return observer_;
  }

 private:
  std::mutex mutex_;
  std::atomic<bool> isTaken_ = false;  // without an observer, all that a call costs is reading this
  std::shared_ptr<const CallObserver> observer_;
};

ObserverSlot& ofEnds() {
  static platform::Lasting<ObserverSlot> slot;
  return *slot;
}

ObserverSlot& ofSending() {
  static platform::Lasting<ObserverSlot> slot;
  return *slot;
}

}  // namespace

std::string ServiceCall::request() const {
  return withMaskedPasswords(request_);
}

std::string ServiceCall::answer() const {
  return withMaskedPasswords(answer_);
}

void setCallObserver(CallObserver observer) {
  ofEnds().set(std::move(observer));
}

void setSendingObserver(CallObserver observer) {
  ofSending().set(std::move(observer));
}

CallWatch::CallWatch(std::wstring_view requestName, std::wstring_view url,
                     std::string_view document, Effect effect)
    : observer_(ofEnds().current()), sendingObserver_(ofSending().current()) {
  if (observer_ == nullptr && sendingObserver_ == nullptr) return;
  call_.requestName = requestName;
  call_.url = url;
  call_.changes = effect == Effect::changes;
  call_.bytesSent = document.size();
  call_.request_ = document;
  start_ = std::chrono::steady_clock::now();
}

void CallWatch::sending() {
  if (sendingObserver_ != nullptr) tell(*sendingObserver_);
}

void CallWatch::answered(const winInet::Answer& answer) {
  if (observer_ == nullptr) return;
  call_.status = answer.status;
  call_.contentType = answer.contentType;
  call_.untilAnswer = sinceStart();
}

void CallWatch::ended(const winInet::Answer& answer) {
  if (observer_ == nullptr) return;
  call_.untilEnd = sinceStart();
  call_.answer_ = answer.body;
  call_.bytesReceived = answer.body.size();
  std::string failure;
  trapped(inModule(L"winInetSend", L"winInet"), [&] {
    if (answer.failure) failure = text::toUtf8(failureText(*answer.failure));
  });
  call_.failure = failure;
  tell(*observer_);
}

void CallWatch::tell(const CallObserver& observer) const {
  trapped(inModule(L"winInetSend", L"winInet"), [&] { observer(call_); });
}

std::chrono::microseconds CallWatch::sinceStart() const {
  using std::chrono::duration_cast;
  return duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start_);
}

}  // namespace ktpnaips
