#include "tests/system/simulator.h"

#include <ktpnaips/briefing/briefings.h>
#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/service.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <future>
#include <string>
#include <thread>
#include <vector>

using ktpnaips::AuthenticateRqs;
using ktpnaips::NAIPSConfig;

namespace {

constexpr std::size_t threadCount = 8;
constexpr std::size_t submitsPerThread = 200;

TEST(Threads, NeverSeeEachOthersAccountAndMode) {
  // Futures: without a futex, as on Windows, GCC 12's std::barrier can miss its wake-up.
  std::promise<void> firstIsSet;
  std::promise<void> secondIsSet;
  const auto run = [](std::int32_t mode, const wchar_t* user, std::promise<void>& own,
                      std::promise<void>& other) {
    NAIPSConfig config;
    config.Mode(mode);
    config.UserName(user);
    config.Password(std::wstring(L"secret of ") + user);
    own.set_value();
    other.get_future().wait();
    EXPECT_EQ(config.Mode(), mode);
    EXPECT_EQ(config.UserName(), user);
    EXPECT_EQ(config.Password(), std::wstring(L"secret of ") + user);
    EXPECT_EQ(ktpnaips::serviceURL(9).empty(), mode == 7);
  };
  std::thread first(run, 2, L"FIRST", std::ref(firstIsSet), std::ref(secondIsSet));
  std::thread second(run, 7, L"SECOND", std::ref(secondIsSet), std::ref(firstIsSet));
  first.join();
  second.join();
  EXPECT_EQ(NAIPSConfig().UserName(), L"");
}

/// Submits log-ins, every second one with a wrong password; of those whose answer was not the right
/// one, what it said.
std::vector<std::wstring> wrongAnswers(std::size_t thread) {
  simulator::use(thread % 2 == 0);
  std::vector<std::wstring> wrong;
  for (std::size_t i = 0; i < submitsPerThread; ++i) {
    const bool isRight = (i + thread) % 2 == 0;
    NAIPSConfig().Password(isRight ? simulator::password : std::wstring_view(L"wrong"));
    const auto response = AuthenticateRqs().submit();
    if (response == nullptr) {
      wrong.emplace_back(L"no response");
    } else if (response->Error() == isRight) {
      wrong.push_back(response->ErrorText());
    }
  }
  return wrong;
}

TEST(Threads, EightSubmitTwoHundredTimesEachAndGetTheirOwnAnswers) {
  simulator::use(true);
  const auto before = simulator::requestCount();
  std::vector<std::vector<std::wstring>> wrong(threadCount);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < threadCount; ++i) {
    threads.emplace_back([&own = wrong[i], i] { own = wrongAnswers(i); });
  }
  for (auto& thread : threads) thread.join();
  for (const auto& own : wrong) {
    EXPECT_TRUE(own.empty()) << own.size() << " wrong answers, the first: " << own.front();
  }
  EXPECT_EQ(simulator::requestCount() - before, threadCount * submitsPerThread);
}

TEST(Threads, DecodingAtOnceNeverShareAFile) {
  simulator::use(true);
  std::vector<std::vector<std::wstring>> files(threadCount);
  std::vector<std::thread> threads;
  for (auto& own : files) {
    threads.emplace_back([&own] {
      simulator::use(true);
      ktpnaips::LocationBriefingRqs request;
      request.addLocation(L"YSSY");
      for (int i = 0; i < 3; ++i) {
        const auto briefing = request.submit();
        for (const auto& item : *briefing) own.push_back(item->File());
      }
    });
  }
  for (auto& thread : threads) thread.join();
  std::vector<std::wstring> all;
  for (const auto& own : files) all.insert(all.end(), own.begin(), own.end());
  std::ranges::sort(all);
  EXPECT_GE(all.size(), threadCount * 3);
  EXPECT_EQ(std::ranges::adjacent_find(all), all.end());
}

}  // namespace
