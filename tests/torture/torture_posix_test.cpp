#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/failure_report.h>
#include <ktpnaips/core/transport.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <regex>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/data_folder.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/raw_server.h"
#include "tests/support/scoped_environment.h"
#include "tests/support/settings.h"
#include "tests/support/test_certificates.h"
#include "tests/torture/failing_step.h"
#include "tests/torture/scenario.h"

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

/// The service, which answers each request with the same.
class Service {
 public:
  explicit Service(const Scenario& scenario)
      : tls_(scenario.way == Way::https ? authority_.server({}) : nullptr),
        server_([this, answer = answerOf(scenario)](Peer& peer) {
          if (tls_ != nullptr) peer.startTls(tls_.get());
          std::string request = peer.readRequest();
          {
            const std::lock_guard lock(mutex_);
            requests_.push_back(std::move(request));
          }
          peer.write(answer);
        }) {}

  [[nodiscard]] Deployment deployment(Way way) const {
    Deployment data;
    data.productionHost = L"naips.example";
    data.proxyHost = L"relay.example";
    data.connectTo = way == Way::named ? L"gateway.example:" + std::to_wstring(server_.port())
                                       : server_.address();
    data.caFile = text::fromUtf8(authority_.file());
    return data;
  }

  /// The requests since the last time.
  std::vector<std::string> takeRequests() {
    const std::lock_guard lock(mutex_);
    return std::exchange(requests_, {});
  }

 private:
  static std::string answerOf(const Scenario& scenario) {
    return "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: " +
           std::to_string(scenario.answer.size()) + "\r\n\r\n" + scenario.answer;
  }

  CertificateAuthority authority_;
  std::shared_ptr<SSL_CTX> tls_;
  std::mutex mutex_;
  std::vector<std::string> requests_;
  RawServer server_;
};

/// What a host sees of one call.
struct Seen {
  bool hasResponse = false;
  bool hasEscaped = false;  ///< a failed allocation reached the host
  bool error = false;
  Outcome outcome = Outcome::none;
  std::wstring errorText;
  std::string content;
  std::map<std::string, std::string> namedFiles;  ///< those that the response names
  std::map<std::string, std::string> dataFiles;   ///< those in the data folder
  std::vector<std::wstring> reports;
};

constexpr const char* earlierProduct = "a product of an earlier briefing";

enum class Phase { firstOfThread, laterOfThread };

struct Iteration {
  StepsTaken steps;
  std::string outcome;
  std::vector<std::string> problems;
};

bool holds(std::wstring_view text, std::wstring_view part) {
  return text.find(part) != std::wstring_view::npos;
}

std::wstring_view firstLine(std::wstring_view text) {
  return text.substr(0, text.find(L'\r'));
}

/// The fault that a failing call for a file shows as.
std::wstring faultOfFile(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return L"Error 61 (Disk full)";
    case EACCES:
    case EROFS:
      return L"Error 70 (Permission denied)";
    case ENOENT:
      return L"Error 76 (Path not found)";
    default:
      return L"Error 75 (Path/File access error)";
  }
}

class Torture : public testing::TestWithParam<Scenario> {
 protected:
  Torture()
      : service_(GetParam()),
        deployment_(service_.deployment(GetParam().way)),
        temporary_("TMPDIR", temporaryFiles_.path().string()) {
    struct sigaction action {};
    action.sa_handler = lastWords;
    action.sa_flags = SA_ONSTACK;
    for (const int signal : {SIGSEGV, SIGBUS, SIGABRT, SIGALRM, SIGFPE}) {
      ::sigaction(signal, &action, nullptr);
    }
    winInet::timeLimits() = {20'000, 20'000, 20'000};
    setFailureReporter([this](std::wstring_view report) {
      const Uncounted uncounted;
      reports_.emplace_back(report);
    });
    if (GetParam().isObserved) {
      setCallObserver([](const ServiceCall& call) { static_cast<void>(call.request()); });
    }
  }

  ~Torture() override {
    setCallObserver({});
    setFailureReporter({});
    winInet::timeLimits() = {};
    ::alarm(0);
  }

  /// Calls until what a process does once has been done, and remembers what a call is like.
  void warmUp() {
    static_cast<void>(xml::Document::parse("<a/>"));  // libxml2 takes a thread for the first
    for (int i = 0; i < 3; ++i) {
      const Iteration iteration = run({}, Phase::laterOfThread);
      steps_ = iteration.steps.count;
    }
    std::thread([&] { expected_ = call({}); }).join();
    EXPECT_TRUE(expected_.hasResponse);
    EXPECT_EQ(expected_.reports, Reports{});
    const auto requests = service_.takeRequests();
    ASSERT_FALSE(requests.empty());
    request_ = requests.back();
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
    std::printf("%s, %s: %ld steps, %d runs\n", GetParam().name.c_str(),
                phase == Phase::firstOfThread ? "first call" : "later call", count, runs);
    for (const auto& [outcome, times] : outcomes) std::printf("  %6d %s\n", times, outcome.c_str());
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
      iteration = run(failure, phase);
    }
    for (const LiveBlock& each : someLiveBlocks()) {
      if (isOfALibrary(each)) continue;
      iteration.problems.push_back("leaked: " + std::to_string(each.size) +
                                   " bytes allocated at step " + std::to_string(each.step));
    }
    if (openDescriptors() != 0) iteration.problems.emplace_back("a descriptor was left open");
    forgetWhatIsThere();
    return iteration;
  }

  /// OpenSSL's text of an error, and libcurl's of a failed name look-up, are now and then left.
  static bool isOfALibrary(const LiveBlock& block) {
    return GetParam().way != Way::http && block.size <= 64;
  }

  static bool hasLeaked() { return !someLiveBlocks().empty() || openDescriptors() != 0; }

  Iteration run(const Failure& failure, Phase phase) {
    Iteration result;
    static_cast<void>(service_.takeRequests());
    std::snprintf(position.data(), position.size(),
                  "%s, %s, step %ld, way %zu%s: ", GetParam().name.c_str(),
                  phase == Phase::firstOfThread ? "first call" : "later call", failure.step,
                  failure.way, failure.isLasting ? ", lasting" : "");
    ::alarm(secondsUntilItHangs);
    Seen before;
    Seen failed;
    Seen after;
    std::thread([&] {
      const AlternateStack stack;
      if (phase == Phase::laterOfThread) before = call({});
      failed = call(failure);
      result.steps = stepsTaken();
      after = call({});
    }).join();
    if (request_.empty()) return result;  // still warming up
    if (phase == Phase::laterOfThread) judgeUndisturbed(before, "the call before", result);
    judge(failed, failure, result);
    judgeUndisturbed(after, "the next call", result);
    judgeRequests(phase == Phase::laterOfThread ? 1 : 0, failed, result);
    for (const auto& each : fs::directory_iterator(temporaryFiles_.path())) {
      result.problems.push_back("left behind: " + each.path().filename().string());
      fs::remove(each.path());
    }
    return result;
  }

  Seen call(const Failure& failure) {
    setUpDataFolder();
    reports_.clear();
    Seen seen;
    std::shared_ptr<const ResponseBase> response;
    {
      const FailingStep scope(failure);
      try {
        response = GetParam().submit();
      } catch (const std::bad_alloc&) {
        seen.hasEscaped = true;
      }
    }
    seen.reports = reports_;
    seen.hasResponse = response != nullptr;
    for (const auto& each : fs::directory_iterator(data_.path().parent_path())) {
      if (each.path() != data_.path()) seen.dataFiles["stray " + each.path().string()];
    }
    for (const std::string& name : data_.names()) {
      seen.dataFiles[name] = contentOf(data_.path() / name);
    }
    if (response == nullptr) return seen;
    seen.error = response->Error();
    seen.outcome = response->outcome();
    seen.errorText = response->ErrorText();
    seen.content = GetParam().content(*response);
    for (const std::wstring& file : GetParam().files(*response)) {
      const fs::path path(file);
      if (fs::is_regular_file(path)) seen.namedFiles[path.string()] = contentOf(path);
    }
    return seen;
  }

  void setUpDataFolder() const {
    fs::remove_all(data_.path());
    if (!GetParam().hasEarlierProduct) return;
    fs::create_directories(data_.path());
    putFile(data_.path() / "NAIPS1.PNG", earlierProduct);
  }

  [[nodiscard]] std::wstring trace() const {
    const std::string body = request_.substr(request_.find("\r\n\r\n") + 4);
    return L"\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n" + text::fromUtf8(body);
  }

  void judgeUndisturbed(const Seen& seen, const std::string& which, Iteration& result) const {
    const bool isSame = seen.hasResponse && seen.error == expected_.error &&
                        seen.errorText == expected_.errorText &&
                        seen.content == expected_.content &&
                        seen.dataFiles == expected_.dataFiles && seen.reports.empty();
    if (!isSame) {
      result.problems.push_back(which + " was not like an undisturbed one: " + described(seen));
    }
  }

  void judge(const Seen& seen, const Failure& failure, Iteration& result) const {
    const auto complain = [&](const std::string& what) {
      result.problems.push_back(nameOfStep(result.steps) + " failed: " + what + ": " +
                                described(seen));
    };
    // Without any memory an empty file cannot even be removed.
    const bool mayBeEmpty =
        failure.isLasting && result.steps.hasFailed && result.steps.at->allocates();
    judgeFiles(seen, mayBeEmpty, complain);
    for (std::size_t i = 0; i < seen.reports.size(); ++i) {
      if (!isDue(seen.reports[i], i > 0, result.steps, failure)) complain("no report of the rule");
    }
    const std::wstring unrecognised = L"SOAP Fault: Unrecognised response.  Details below.\r\n";
    const bool isReported = !seen.reports.empty();
    if (seen.outcome == Outcome::success && seen.error) complain("no success");
    if (seen.hasEscaped) {
      result.outcome = "out of memory, to the host";
      if (!result.steps.hasFailed || !result.steps.at->allocates()) complain("let pass");
    } else if (!seen.hasResponse) {
      result.outcome = "no response, reported";
      if (!isReported) complain("no response and no report");
    } else if (seen.error == expected_.error && seen.content == expected_.content &&
               seen.errorText == expected_.errorText) {
      result.outcome = isReported ? "whole response, reported" : "whole response";
    } else if (!seen.error) {
      result.outcome = "part of the response, reported";
      if (!isReported) complain("data lost silently");
    } else if (isReported) {
      result.outcome = "error, reported";
      const bool isOfTheRule = seen.errorText.starts_with(L"No response set") ||
                               seen.errorText.starts_with(unrecognised) ||
                               holds(expected_.errorText, firstLine(seen.errorText));
      if (!isOfTheRule) complain("no error text of the rule");
    } else {
      result.outcome = "error text";
      if (!seen.errorText.starts_with(unrecognised) || !seen.errorText.ends_with(trace())) {
        complain("no error text of the rule");
      }
      if (result.steps.hasFailed && result.steps.at->allocates() &&
          !holds(seen.errorText, L" call failed: ")) {
        complain("the answer is blamed");
      }
    }
    if (result.steps.hasFailed) {
      result.outcome =
          (result.steps.at->allocates() ? "allocation: " : "system call: ") + result.outcome;
    }
  }

  template <class Complain>
  void judgeFiles(const Seen& seen, bool mayBeEmpty, Complain complain) const {
    const auto& products = GetParam().products;
    const auto isWhole = [&](const std::string& content) {
      return std::find(products.begin(), products.end(), content) != products.end();
    };
    for (const auto& [path, content] : seen.namedFiles) {
      if (mayBeEmpty && content.empty()) continue;
      if (!isWhole(content)) complain("names a file that is not whole: " + path);
    }
    for (const auto& [name, content] : seen.dataFiles) {
      const bool isEarlier = GetParam().hasEarlierProduct && name == "NAIPS1.PNG";
      if (isEarlier ? content != earlierProduct : !isWhole(content)) {
        complain("a file that is not whole: " + name);
      }
    }
    if (GetParam().hasEarlierProduct && seen.dataFiles.count("NAIPS1.PNG") == 0) {
      complain("an earlier product is gone");
    }
  }

  /// Whether it is what the rule says about the failure of this step.
  [[nodiscard]] bool isDue(const std::wstring& report, bool isLater, const StepsTaken& steps,
                           const Failure& failure) const {
    static const std::wregex form(
        LR"((Error -?\d+ \(.*\)) in procedure (\w+ of (Class )?Module \w+))");
    std::wsmatch parts;
    if (!std::regex_match(report, parts, form)) return false;
    static const std::set<std::wstring> common{L"aaapost of Module Utils",
                                               L"winInetSend of Module winInet",
                                               L"splitURL of Module winInet",
                                               L"loadResponse of Module Utils",
                                               L"lfToCrLf of Module Utils",
                                               L"cleanString of Module Utils",
                                               L"addElement of Module modBrevank",
                                               L"addAttribute of Module modBrevank",
                                               L"convertISODateTime of Module Utilities"};
    const std::wstring procedure = parts[2];
    if (!common.contains(procedure) && !GetParam().procedures.contains(procedure)) return false;
    const std::wstring fault = parts[1];
    if (!steps.hasFailed) return false;
    // What was not made is missing later: an object, or the path of a file.
    const std::wstring noPath = faultOfFile(ENOENT);
    if (isLater && (fault == noPath || fault.starts_with(L"Error 91 "))) return true;
    // A temporary file that was not made, whatever for, is a path that is missing.
    if (steps.at->allocates()) return fault == L"Error 7 (Out of memory)" || fault == noPath;
    const std::string_view function = steps.at->name;
    const bool makesPath = function == "mkdir" || function == "stat" || function == "mkostemps";
    return fault == (makesPath ? noPath : faultOfFile(steps.at->errors.at(failure.way)));
  }

  void judgeRequests(std::size_t before, const Seen& failed, Iteration& result) {
    const std::vector<std::string> requests = service_.takeRequests();
    if (requests.size() > before + 2) result.problems.emplace_back("sent more than once");
    if (requests.size() < before + 1) result.problems.emplace_back("not sent");
    const bool isDenied = failed.outcome == Outcome::none || failed.outcome == Outcome::notSent;
    if (requests.size() == before + 2 && failed.hasResponse && isDenied) {
      result.problems.push_back("sent, which the outcome denies: " + described(failed));
    }
    for (std::size_t i = 0; i < requests.size(); ++i) {
      const bool isOfFailed = requests.size() == before + 2 && i == before;
      const bool mayDiffer = isOfFailed && !failed.reports.empty();
      if (requests[i] != request_ && !mayDiffer) {
        result.problems.push_back("another request: " + requests[i]);
      }
    }
  }

  static std::string nameOfStep(const StepsTaken& steps) {
    return steps.at != nullptr ? steps.at->name : "nothing";
  }

  static std::string described(const Seen& seen) {
    std::string text = seen.hasEscaped ? "escaped" : seen.hasResponse ? "response" : "no response";
    if (seen.hasResponse) {
      text += seen.error ? ", error \"" + text::toUtf8(seen.errorText).substr(0, 300) + '"'
                         : ", success";
    }
    for (const std::wstring& report : seen.reports) text += "\n  report: " + text::toUtf8(report);
    for (const auto& [name, content] : seen.dataFiles) {
      text += "\n  file: " + name + ", " + std::to_string(content.size());
    }
    for (const auto& [name, content] : seen.namedFiles) {
      text += "\n  named: " + name + ", " + std::to_string(content.size());
    }
    return text;
  }

  Service service_;
  ScopedDeployment deployment_;
  DataFolder data_;
  ScratchFolder temporaryFiles_;
  ScopedEnvironment temporary_;
  std::vector<std::wstring> reports_;
  Seen expected_;
  std::string request_;
  long steps_ = 0;
  int problems_ = 0;
};

TEST_P(Torture, NoSingleFailureOfTheFirstCallOfAThreadDoesHarm) {
  warmUp();
  failEverywhere(Phase::firstOfThread);
}

TEST_P(Torture, NoSingleFailureOfALaterCallDoesHarm) {
  warmUp();
  failEverywhere(Phase::laterOfThread);
}

INSTANTIATE_TEST_SUITE_P(Of, Torture, testing::ValuesIn(scenarios()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace ktpnaips::test

#ifdef __SANITIZE_ADDRESS__
extern "C" void __asan_on_error();   // NOLINT(bugprone-reserved-identifier)
extern "C" void __asan_on_error() {  // NOLINT(bugprone-reserved-identifier)
  ktpnaips::test::sayPosition();
}
#endif
