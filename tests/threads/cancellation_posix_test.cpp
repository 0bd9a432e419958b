#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/briefing/temp_files.h>
#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <thread>

#include "tests/support/data_folder.h"
#include "tests/support/raw_server.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

/// A thread that may be cancelled.
class Cancellable {
 public:
  explicit Cancellable(std::function<void(const Cancellable&)> body) : body_(std::move(body)) {
    pthread_create(&thread_, nullptr, run, this);
  }
  Cancellable(const Cancellable&) = delete;
  Cancellable& operator=(const Cancellable&) = delete;

  void cancel() {
    pthread_cancel(thread_);
    isCancelled_ = true;
  }
  /// Waits, without being cancelled meanwhile, until it has to be.
  void waitUntilCancelled() const {
    while (!isCancelled_) {
    }
  }
  /// Says whether it was cancelled before it came to its end.
  bool join() {
    void* result = nullptr;
    pthread_join(thread_, &result);
    return result == PTHREAD_CANCELED;
  }

 private:
  static void* run(void* self) {
    const auto* const own = static_cast<Cancellable*>(self);
    own->body_(*own);
    return nullptr;
  }

  std::function<void(const Cancellable&)> body_;
  std::atomic<bool> isCancelled_{false};
  pthread_t thread_{};
};

const std::string success = test::success("");

/// A service whose answer comes after the thread has been cancelled.
class SlowService {
 public:
  SlowService()
      : server_([this](test::Peer& peer) {
          peer.readRequest();
          hasRequest_.set_value();
          mayAnswer_.get_future().wait();
          peer.write("HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: " +
                     std::to_string(success.size()) + "\r\n\r\n" + success);
        }) {
    Deployment deployment;
    deployment.connectTo = server_.address();
    Deployment::use(std::move(deployment));
  }
  void waitForRequest() { hasRequest_.get_future().wait(); }
  void answer() { mayAnswer_.set_value(); }

 private:
  test::ScopedDeployment before_{Deployment::current()};
  std::promise<void> hasRequest_;
  std::promise<void> mayAnswer_;
  test::RawServer server_;
};

/// What is wrong with the answer to a log-in; nothing as a rule.
std::wstring errorOfLogIn() {
  NAIPSConfig config;
  config.Mode(1);
  config.UseProxy(true);  // over HTTP
  const auto response = AuthenticateRqs().submit();
  return response != nullptr && response->Error() ? response->ErrorText() : L"";
}

TEST(ACancelledThread, HasItsAnswerBeforeItEnds) {
  SlowService service;
  std::wstring error = L"none asked";
  bool isAtItsEnd = false;
  Cancellable thread([&](const Cancellable&) {
    error = errorOfLogIn();
    pthread_testcancel();
    isAtItsEnd = true;
  });
  service.waitForRequest();
  thread.cancel();
  service.answer();
  EXPECT_TRUE(thread.join());
  EXPECT_EQ(error, L"");
  EXPECT_FALSE(isAtItsEnd);
}

TEST(ACancelledThread, MayBeCancelledBetweenCallsAsEver) {
  std::atomic<bool> isAtItsEnd = false;
  std::promise<void> isReady;
  Cancellable thread([&](const Cancellable&) {
    sharedTempFiles().CreateTempFile(L"KTP");
    isReady.set_value();
    std::this_thread::sleep_for(std::chrono::minutes(1));
    isAtItsEnd = true;
  });
  isReady.get_future().wait();
  thread.cancel();
  EXPECT_TRUE(thread.join());
  EXPECT_FALSE(isAtItsEnd);
}

TEST(ACancelledThread, WritesItsFilesWhole) {
  const test::DataFolder folder;
  std::wstring file;
  std::wstring temporary;
  Cancellable thread([&](const Cancellable& own) {
    own.waitUntilCancelled();
    BriefingResponse response;
    test::load(response, test::success("<n:product type=\"PNG\"><n:content>QUJD</n:content>"
                                       "</n:product>"));
    file = response.Item(1)->File();
    temporary = sharedTempFiles().CreateTempFile(L"KTP");
    pthread_testcancel();
    ADD_FAILURE() << "not cancelled";
  });
  thread.cancel();
  EXPECT_TRUE(thread.join());
  EXPECT_EQ(test::contentOf(file), "ABC");
  EXPECT_FALSE(temporary.empty());
  EXPECT_FALSE(std::filesystem::exists(temporary));
}

TEST(ACancelledThread, ThatEndsByItselfGivesBackWhatItKept) {
  for (int i = 0; i < 20; ++i) {
    SlowService service;
    std::wstring error = L"none asked";
    std::wstring temporary;
    Cancellable thread([&](const Cancellable& own) {
      error = errorOfLogIn();
      temporary = sharedTempFiles().CreateTempFile(L"KTP");
      own.waitUntilCancelled();
    });
    service.waitForRequest();
    service.answer();
    thread.cancel();
    thread.join();
    EXPECT_EQ(error, L"");
    EXPECT_FALSE(temporary.empty());
    EXPECT_FALSE(std::filesystem::exists(temporary));
  }
}

}  // namespace
}  // namespace ktpnaips
