#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/support/data_folder.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/scoped_environment.h"
#include "tests/support/settings.h"
#include "tests/torture/failing_step.h"
#include "tests/torture/fresh_processes.h"
#include "tests/torture/judge.h"
#include "tests/torture/scenario.h"
#include "tests/torture/seen.h"
#include "tests/torture/service.h"

namespace ktpnaips::test {
namespace {

namespace fs = std::filesystem;

/// What is going on, for the last words of a program that crashes or hangs.
std::array<char, 300> position{};
constexpr unsigned secondsUntilItHangs = 120;

void sayPosition() {
  const Uncounted uncounted;
  const char* const text = position.data();
  if (::write(STDERR_FILENO, text, std::strlen(text)) < 0) std::abort();
}

/// Room for the last words of a thread whose stack is used up.
class AlternateStack {
 public:
  AlternateStack() {
    const stack_t stack{memory_.data(), 0, memory_.size()};
    ::sigaltstack(&stack, nullptr);
  }
  ~AlternateStack() {
    const stack_t none{nullptr, SS_DISABLE, 0};
    ::sigaltstack(&none, nullptr);
  }
  AlternateStack(const AlternateStack&) = delete;
  AlternateStack& operator=(const AlternateStack&) = delete;

 private:
  std::vector<char> memory_ = std::vector<char>(64 * 1024);
};

void lastWords(int signal) {
  sayPosition();
  std::signal(signal, SIG_DFL);
  static_cast<void>(std::raise(signal));
}

/// A number that the run of the tests is given, or 0.
long given(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr ? std::strtol(value, nullptr, 10) : 0;
}

enum class Phase { firstOfProcess, firstOfThread, laterOfThread };

std::string nameOf(Phase phase) {
  if (phase == Phase::firstOfProcess) return "first call of a process";
  return phase == Phase::firstOfThread ? "first call" : "later call";
}

/// What a library leaves behind when memory ends.
struct ToleratedLeak {
  std::string_view library;   ///< how its name starts
  std::string_view function;  ///< how the name of its function ends
  const char* reason;
};
constexpr std::array toleratedLeaks{
    ToleratedLeak{"libcrypto.", "ERR_vset_error",
                  "OpenSSL forgets the text of an error that it takes back with ERR_pop_to_mark"},
    ToleratedLeak{"libcrypto.", "_fetch", "OpenSSL keeps what it has found among its providers"},
    ToleratedLeak{"ld-", "_dl_allocate_tls", "the system keeps the stack of a thread for the next"},
};

class Torture : public testing::TestWithParam<Scenario> {
 protected:
  Torture()
      : service_(GetParam()),
        deployment_(deploymentOf(service_)),
        temporary_("TMPDIR", temporaryFiles_.path().string()),
        judge_(GetParam()) {
    struct sigaction action {};
    action.sa_handler = lastWords;
    action.sa_flags = SA_ONSTACK;
    for (const int signal : {SIGSEGV, SIGBUS, SIGABRT, SIGALRM, SIGFPE}) {
      ::sigaction(signal, &action, nullptr);
    }
    prepareCalls(GetParam(), Deployment::current());
  }

  ~Torture() override {
    setCallObserver({});
    winInet::timeLimits() = {};
    ::alarm(0);
  }

  /// Calls until what a process does once has been done, and remembers what a call is like.
  void warmUp() {
    static_cast<void>(xml::Document::parse("<a/>"));  // libxml2 takes a thread for the first
    for (int i = 0; i < 3; ++i) run({}, Phase::laterOfThread);
    Seen expected;
    std::thread([&] { expected = call({}); }).join();
    EXPECT_TRUE(expected.hasResponse);
    EXPECT_EQ(expected.reports, Reports{});
    const auto requests = service_.takeRequests();
    ASSERT_FALSE(requests.empty());
    judge_.expect(expected, requests.back());
    isWarm_ = true;
    forgetWhatIsThere();
  }

  /// Makes every step fail that the run of the tests is to see, in every way.
  void failEverywhere(Phase phase) {
    const Iteration undisturbed = run({}, phase);
    expectNoProblems(undisturbed, "nothing fails");
    const long count = undisturbed.steps.count;
    const long wanted = given("KTP_TORTURE_EVERY");
    const long every = wanted > 0 ? wanted : std::max(1L, count / 12);
    const long only = given("KTP_TORTURE_STEP");
    traceSteps({given("KTP_TORTURE_TRACE")});
    std::map<std::string, int> outcomes;
    int runs = 0;
    const auto fail = [&](const Failure& failure) {
      const Iteration iteration = runTwiceIfItLeaks(failure, phase);
      expectNoProblems(iteration, position.data());
      if (!iteration.steps.hasFailed) return iteration.steps;
      ++runs;
      ++outcomes[iteration.outcome];
      return iteration.steps;
    };
    for (long step = 0; step < count; step += every) {
      if (only > 0 && step != only) continue;
      StepsTaken once = fail({step, 0, false});
      if (once.hasFailed) fail({step, 0, true});
      if (once.at == nullptr || once.at->allocates()) continue;
      for (std::size_t way = 1; once.hasFailed; ++way) once = fail({step, way, false});
    }
    if (wanted == 0) return;
    std::printf("%s, %s: %ld steps, %d runs\n", GetParam().name.c_str(), nameOf(phase).c_str(),
                count, runs);
    for (const auto& [outcome, times] : outcomes) std::printf("  %6d %s\n", times, outcome.c_str());
    for (const auto& [reason, times] : tolerated_) {
      std::printf("  %6d blocks left: %s\n", times, reason.c_str());
    }
    std::fflush(stdout);
  }

 private:
  void expectNoProblems(const Iteration& iteration, const std::string& where) {
    for (const std::string& each : iteration.problems) {
      if (++problems_ <= 30) ADD_FAILURE() << where << each;
    }
  }

  /// Something that is made once for the process, on the way to a failure, is no leak.
  Iteration runTwiceIfItLeaks(const Failure& failure, Phase phase) {
    Iteration iteration = run(failure, phase);
    for (int again = 0; again < 2 && hasLeaked(); ++again) {
      forgetWhatIsThere();
      noteOwners(true);
      iteration = run(failure, phase);
      noteOwners(false);
    }
    for (const LiveBlock& each : someLiveBlocks()) {
      if (const ToleratedLeak* const tolerated = toleratedLeak(each)) {
        ++tolerated_[tolerated->reason];
        continue;
      }
      iteration.problems.push_back("leaked: " + std::to_string(each.size) + " bytes of " +
                                   each.owner.library + ' ' + each.owner.function +
                                   ", allocated at step " + std::to_string(each.step));
    }
    if (openDescriptors() != 0) iteration.problems.emplace_back("a descriptor was left open");
    forgetWhatIsThere();
    return iteration;
  }

  static const ToleratedLeak* toleratedLeak(const LiveBlock& block) {
    const auto* const found =
        std::find_if(toleratedLeaks.begin(), toleratedLeaks.end(), [&](const auto& each) {
          return block.owner.isOf(each.library) &&
                 std::string_view(block.owner.function).ends_with(each.function);
        });
    return found != toleratedLeaks.end() ? found : nullptr;
  }

  static Deployment deploymentOf(const Service& service) {
    Deployment data;
    data.productionHost = L"naips.example";
    data.proxyHost = L"relay.example";
    data.connectTo = service.address(GetParam().way);
    data.caFile = service.caFile();
    return data;
  }

  /// OpenSSL does not set itself up for a process a second time when it had no memory for it, as
  /// docs/network-faults.md says.
  static bool isWithoutTls(const FirstCalls& calls) {
    const bool isOpensslsFailure =
        calls.deniedTo.starts_with("libcrypto.") || calls.deniedTo.starts_with("libssl.");
    // Newer versions of libcurl do not set themselves up then, either.
    const bool isExpected =
        calls.after.reports.empty() ||
        calls.after.reports ==
            std::vector<std::wstring>{
                L"Error 7 (Out of memory) in procedure winInetSend of Module winInet"};
    return isOpensslsFailure && calls.after.error && calls.after.outcome == Outcome::notSent &&
           isExpected;
  }

  [[nodiscard]] Seen call(const Failure& failure) const {
    return test::call(GetParam(), data_.path(), failure);
  }

  static bool hasLeaked() { return !someLiveBlocks().empty() || openDescriptors() != 0; }

  Iteration run(const Failure& failure, Phase phase) {
    Iteration result;
    static_cast<void>(service_.takeRequests());
    std::snprintf(position.data(), position.size(),
                  "%s, %s, step %ld, way %zu%s: ", GetParam().name.c_str(), nameOf(phase).c_str(),
                  failure.step, failure.way, failure.isLasting ? ", lasting" : "");
    ::alarm(secondsUntilItHangs);
    Seen before;
    FirstCalls calls;
    if (phase == Phase::firstOfProcess) {
      calls = freshProcesses().calls(GetParam(), Deployment::current(), data_.path(), failure);
      if (!calls.end.empty()) result.problems.push_back("the process died: " + calls.end);
      if (!calls.end.empty()) return result;
      result.steps = calls.steps;
    } else {
      std::thread([&] {
        const AlternateStack stack;
        if (phase == Phase::laterOfThread) before = call({});
        calls.failed = call(failure);
        result.steps = stepsTaken();
        calls.after = call({});
      }).join();
    }
    if (!isWarm_) return result;
    if (phase == Phase::laterOfThread) judge_.judgeUndisturbed(before, "the call before", result);
    judge_.judge(calls.failed, failure, result);
    if (isWithoutTls(calls)) {
      result.outcome += ", no TLS since";
      if (service_.takeRequests().size() > 1) result.problems.emplace_back("sent more than once");
      return result;
    }
    judge_.judgeUndisturbed(calls.after, "the next call", result);
    judge_.judgeRequests(service_.takeRequests(), phase == Phase::laterOfThread ? 1 : 0,
                         calls.failed, result);
    for (const auto& each : fs::directory_iterator(temporaryFiles_.path())) {
      result.problems.push_back("left behind: " + each.path().filename().string());
      fs::remove(each.path());
    }
    return result;
  }

  Service service_;
  ScopedDeployment deployment_;
  DataFolder data_;
  ScratchFolder temporaryFiles_;
  ScopedEnvironment temporary_;
  Judge judge_;
  bool isWarm_ = false;
  int problems_ = 0;
  std::map<std::string, int> tolerated_;
};

TEST_P(Torture, NoSingleFailureOfTheFirstCallOfAThreadDoesHarm) {
  warmUp();
  failEverywhere(Phase::firstOfThread);
}

TEST_P(Torture, NoSingleFailureOfALaterCallDoesHarm) {
  warmUp();
  failEverywhere(Phase::laterOfThread);
}

class ProcessTorture : public Torture {};

TEST_P(ProcessTorture, NoSingleFailureOfTheFirstCallOfAProcessDoesHarm) {
  warmUp();
  failEverywhere(Phase::firstOfProcess);
}

/// Those that use every library in every way.
std::vector<Scenario> scenariosOfAProcess() {
  const std::set<std::string> wanted{"Login", "LoginOverHttps", "LoginAtANamedHost", "Chart"};
  std::vector<Scenario> chosen = scenarios();
  std::erase_if(chosen, [&](const Scenario& each) { return !wanted.contains(each.name); });
  return chosen;
}

INSTANTIATE_TEST_SUITE_P(Of, ProcessTorture, testing::ValuesIn(scenariosOfAProcess()),
                         [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(Of, Torture, testing::ValuesIn(scenarios()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace ktpnaips::test
