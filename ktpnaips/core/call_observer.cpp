#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/core/call_watch.h>
#include <ktpnaips/core/error_text.h>
#include <ktpnaips/core/masking.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/text.h>

#include <atomic>
#include <mutex>
#include <utility>

namespace ktpnaips {
namespace {

std::mutex observerMutex;
// Without an observer, all that a call costs is reading this.
std::atomic<bool> isObserved = false;

std::shared_ptr<const CallObserver>& installedObserver() {
  static std::shared_ptr<const CallObserver> observer;
  return observer;
}

std::shared_ptr<const CallObserver> currentObserver() {
  if (!isObserved.load(std::memory_order_relaxed)) return nullptr;
  const std::lock_guard lock(observerMutex);
  return installedObserver();
}

}  // namespace

std::string ServiceCall::request() const {
  return withMaskedPasswords(request_);
}

std::string ServiceCall::answer() const {
  return withMaskedPasswords(answer_);
}

void setCallObserver(CallObserver observer) {
  auto shared = observer ? std::make_shared<const CallObserver>(std::move(observer)) : nullptr;
  const std::lock_guard lock(observerMutex);
  isObserved.store(shared != nullptr, std::memory_order_relaxed);
  installedObserver().swap(shared);
}

CallWatch::CallWatch(std::wstring_view requestName, std::wstring_view url,
                     std::string_view document)
    : observer_(currentObserver()) {
  if (observer_ == nullptr) return;
  call_.requestName = requestName;
  call_.url = url;
  call_.bytesSent = document.size();
  call_.request_ = document;
  start_ = std::chrono::steady_clock::now();
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
  trapped(inModule(L"winInetSend", L"winInet"), [&] {
    std::string failure;
    if (answer.failure) failure = text::toUtf8(failureText(*answer.failure));
    call_.failure = failure;
    (*observer_)(call_);
  });
}

std::chrono::microseconds CallWatch::sinceStart() const {
  using std::chrono::duration_cast;
  return duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start_);
}

}  // namespace ktpnaips
