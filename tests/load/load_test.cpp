#include "tests/system/simulator.h"

#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/briefing/charts.h>
#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/call_observer.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/platform/terminal.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <future>
#include <iostream>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/load/memory.h"
#include "tests/support/data_folder.h"
#include "tests/support/failure_recorder.h"

using namespace ktpnaips;

namespace {

constexpr int threadCount = 64;

int submitsInAll() {
  return std::stoi(terminal::environment("KTP_LOAD_SUBMITS").value_or("2048"));
}

constexpr std::array<const wchar_t*, 4> places{L"YSSY", L"YMML", L"YBBN", L"YPPH"};
constexpr std::array<const wchar_t*, 2> chartKeys{L"80001", L"80011"};

std::string bytesOf(const std::wstring& file) {
  return test::contentOf(std::filesystem::path(file));
}

std::shared_ptr<GetChartRsp> fetchChart(std::wstring_view key) {
  GetChartRqs request;
  request.Key(key);
  request.Resolution(L"LO");
  return request.submit();
}

/// Why there is no answer, without the request; empty when there is one.
std::wstring errorOf(const AbstractResponse* response) {
  if (response == nullptr) return L"no response";
  if (!response->Error()) return {};
  const std::wstring text = response->ErrorText();
  return L"an error: " + text.substr(0, text.find(L"\r\n\r\n+-+-+-+"));
}

std::size_t temporaryFiles() {
  const std::filesystem::directory_iterator all(std::filesystem::temp_directory_path());
  return static_cast<std::size_t>(std::count_if(begin(all), end(all), [](const auto& entry) {
    const std::string name = entry.path().filename().string();
    return name.starts_with("KTP") && name.ends_with(".tmp");
  }));
}

/// What all threads know, and what they have found.
struct Shared {
  std::array<std::string, chartKeys.size()> charts;
  std::atomic<int> submits = 0;
  std::atomic<int> toWrongHost = 0;

  /// The file is one that no other thread was given.
  bool isNew(const std::wstring& file) {
    const std::lock_guard lock(mutex_);
    return files_.insert(file).second;
  }

  void note(const std::wstring& problem) {
    const std::lock_guard lock(mutex_);
    ++problems_[problem];
  }

  /// How often each thing went wrong.
  const std::map<std::wstring, int>& problems() const { return problems_; }

 private:
  std::mutex mutex_;
  std::set<std::wstring> files_;
  std::map<std::wstring, int> problems_;
};

/// Where the calls of the thread have to go.
thread_local std::wstring ownSite;
thread_local std::string ownRequestor;

/// One thread with an account and a mode of its own.
class Pilot {
 public:
  Pilot(int number, Shared& shared)
      : number_(number), name_(L"LOAD" + std::to_wstring(number)), shared_(shared) {
    const Deployment& hosts = Deployment::current();
    const int kind = number % 3;
    NAIPSConfig config;
    config.Mode(kind == 2 ? 2 : 1);
    config.UseProxy(kind == 1);
    config.UserName(name_);
    config.Password(password());
    ownSite = kind == 0   ? L"https://" + hosts.productionHost + L"/"
              : kind == 1 ? L"http://" + hosts.proxyHost + L"/"
                          : L"https://" + hosts.testHost + L"/";
    ownRequestor = " requestor=\"" + text::toUtf8(name_) + "\" password=";
  }

  void submit(int turn) {
    const std::wstring problem = turn % 128 == 8   ? brief()
                                 : turn % 16 == 0  ? fetchOwnChart()
                                 : turn % 16 == 12 ? logInAsOther()
                                                   : logIn();
    ++shared_.submits;
    if (!problem.empty()) shared_.note(problem);
  }

 private:
  [[nodiscard]] std::wstring password() const { return L"secret of " + name_; }

  // Each gives what was wrong, or nothing.

  std::wstring logIn() {
    const auto response = AuthenticateRqs().submit();
    if (auto error = errorOf(response.get()); !error.empty()) return L"log-in: " + error;
    return response->Name() == L"Pilot " + name_ ? L"" : L"log-in: the name of another";
  }

  std::wstring logInAsOther() {
    AuthenticateRqs request;
    request.abstractReq().User(L"LOAD" + std::to_wstring((number_ + 1) % threadCount));
    request.abstractReq().Password(password());
    ownRequestor.swap(otherRequestor_);
    ownRequestor = " requestor=\"" + text::toUtf8(request.abstractReq().User()) + "\" password=";
    const auto response = request.submit();
    ownRequestor.swap(otherRequestor_);
    const std::wstring error = errorOf(response.get());
    if (error.find(L"NAIPS Error: ") == std::wstring::npos) {
      return L"log-in with the password of another: not refused; " + error;
    }
    return response->Name().empty() ? L"" : L"log-in with the password of another: a name";
  }

  std::wstring brief() {
    const std::wstring place = places[static_cast<std::size_t>(number_) % places.size()];
    LocationBriefingRqs request;
    request.addLocation(place);
    const auto response = request.submit();
    if (auto error = errorOf(response.get()); !error.empty()) return L"briefing: " + error;
    const std::wstring text = response->Content();
    const bool isOwn = text.find(L" FOR " + name_ + L"\n") != std::wstring::npos &&
                       text.find(place) != std::wstring::npos;
    if (!isOwn) return L"briefing: the text of another";
    if (response->Count() == 0) return L"briefing: no charts";
    for (const auto& item : *response) {
      if (!shared_.isNew(item->File())) return L"briefing: a file that was given before";
      if (!bytesOf(item->File()).starts_with("\x89PNG")) return L"briefing: a file of other bytes";
    }
    return {};
  }

  std::wstring fetchOwnChart() {
    const std::size_t which = static_cast<std::size_t>(number_) % chartKeys.size();
    const auto chart = fetchChart(chartKeys[which]);
    if (auto error = errorOf(chart.get()); !error.empty()) return L"chart: " + error;
    if (chart->Count() != 1) return L"chart: none";
    const std::wstring file = chart->Item(1)->FilePath();
    if (bytesOf(file) != shared_.charts[which]) return L"chart: other bytes";
    return shared_.isNew(file) ? L"" : L"chart: a file that was given before";
  }

  int number_;
  std::wstring name_;
  std::string otherRequestor_;
  Shared& shared_;
};

/// The submits are spread over all threads, which end together: then no name of a temporary file
/// becomes free for another one.
void fly(Shared& shared, int submits) {
  std::atomic<int> atWork = threadCount;
  std::promise<void> allDone;
  const std::shared_future<void> end = allDone.get_future().share();
  std::vector<std::thread> threads;
  for (int number = 0; number < threadCount; ++number) {
    threads.emplace_back([&, number, end] {
      Pilot pilot(number, shared);
      for (int turn = number; turn < submits; turn += threadCount) pilot.submit(turn / threadCount);
      if (--atWork == 0) allDone.set_value();
      end.wait();
    });
  }
  for (auto& thread : threads) thread.join();
}

TEST(Load, SixtyFourAccountsAndModesGetTheirOwnAnswersEachOnce) {
  const test::FailureRecorder failures;
  simulator::use(true);
  Shared shared;
  for (std::size_t i = 0; i < chartKeys.size(); ++i) {
    const auto chart = fetchChart(chartKeys[i]);
    ASSERT_EQ(errorOf(chart.get()), L"");
    ASSERT_EQ(chart->Count(), 1);
    shared.charts[i] = bytesOf(chart->Item(1)->FilePath());
    ASSERT_TRUE(shared.charts[i].starts_with("\x89PNG")) << i;
  }
  setCallObserver([&shared](const ServiceCall& call) {
    if (ownSite.empty()) return;  // the test's own
    if (!call.url.starts_with(ownSite) || call.request().find(ownRequestor) == std::string::npos) {
      ++shared.toWrongHost;
    }
  });
  const int submits = submitsInAll();
  const auto temporaryBefore = temporaryFiles();
  const auto requestsBefore = simulator::requestCount();
  fly(shared, submits / 4);
  const Memory early = Memory::now();
  fly(shared, submits - submits / 4);
  const Memory late = Memory::now();
  const auto requests = simulator::requestCount() - requestsBefore;
  setCallObserver({});

  for (const auto& [problem, times] : shared.problems()) {
    ADD_FAILURE() << times << " times: " << text::toUtf8(problem);
  }
  EXPECT_EQ(shared.toWrongHost, 0);
  EXPECT_EQ(shared.submits, submits);
  EXPECT_EQ(requests, static_cast<std::size_t>(submits));
  EXPECT_EQ(temporaryFiles(), temporaryBefore);
  EXPECT_TRUE(failures.reports().empty()) << text::toUtf8(failures.reports().front());
  EXPECT_LE(late.inUse, early.inUse + mostGrowth.inUse);
  EXPECT_LE(late.resident, early.resident + mostGrowth.resident);
  std::cout << submits << " submits of " << threadCount << " threads; resident "
            << early.resident / 1024 << " KB after a quarter, " << late.resident / 1024
            << " KB at the end; in use " << early.inUse / 1024 << " and " << late.inUse / 1024
            << " KB\n";
}

}  // namespace
