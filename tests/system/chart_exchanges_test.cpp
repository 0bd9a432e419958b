#include "tests/support/date_time.h"
#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/briefing/charts.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <thread>

using namespace ktpnaips;
using ktpnaips::test::at;
using simulator::firstBytes;
using simulator::isPng;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

class ChartExchange : public simulator::Exchange {};

INSTANTIATE_TEST_SUITE_P(Schemes, ChartExchange, testing::Bool(), simulator::schemeName);

struct Chart {
  const wchar_t* key;
  const wchar_t* name;
  const wchar_t* type;
  bool low;
  bool high;
  const wchar_t* format;
};

constexpr std::array charts{
    Chart{L"80001", L"MSLP ANALYSIS", L"MSLP", true, true, L"PNG"},
    Chart{L"80002", L"MSLP PROGNOSIS 24HR", L"MSLP", true, true, L"PNG"},
    Chart{L"80003", L"MSLP PROGNOSIS 48HR", L"MSLP", true, true, L"PNG"},
    Chart{L"80011", L"SIGWX HIGH LEVEL FL250-FL630", L"SIGWX", true, true, L"PNG"},
    Chart{L"80012", L"SIGWX MID LEVEL A100-FL250", L"SIGWX", true, true, L"PNG"},
    Chart{L"80013", L"SIGWX HIGH LEVEL FL250-FL630 (PRINT)", L"SIGWX", false, true, L"PDF"},
    Chart{L"80021", L"GPWT A050", L"GPWT", true, true, L"PNG"},
    Chart{L"80022", L"GPWT FL100", L"GPWT", true, true, L"PNG"},
    Chart{L"80023", L"GPWT FL185", L"GPWT", true, true, L"PNG"},
    Chart{L"80024", L"GPWT FL340", L"GPWT", true, true, L"PNG"},
    Chart{L"80025", L"GPWT FL390", L"GPWT", true, false, L"PNG"},
};

void expectDescription(const ChartDescriptor& description, const Chart& chart) {
  EXPECT_EQ(description.Key(), chart.key);
  EXPECT_EQ(description.Name(), chart.name);
  EXPECT_EQ(description.ProductType(), chart.type);
  EXPECT_EQ(description.StoreTime(), at(2026, 11, 20, 6));
  EXPECT_FALSE(description.PDF());
}

TEST_P(ChartExchange, ListsTheChartsAndThatAllComeInVariants) {
  const auto directory = ChartDirectoryRqs().submit();
  ASSERT_TRUE(succeeded(directory));
  EXPECT_EQ(lastRequest(), requestOf("chart-dir-rqs", ""));
  ASSERT_EQ(directory->Count(), 11);
  auto chart = charts.begin();
  for (const auto& listed : *directory) {
    expectDescription(*listed, *chart++);
    EXPECT_TRUE(listed->LowRes());
    EXPECT_TRUE(listed->HighRes());
  }
  EXPECT_EQ(directory->Item(0), nullptr);
  EXPECT_EQ(directory->Item(12), nullptr);
}

std::shared_ptr<GetChartRsp> fetch(std::wstring_view key, std::wstring_view resolution) {
  GetChartRqs request;
  request.Key(key);
  request.Resolution(resolution);
  return request.submit();
}

void expectProduct(const Product& product, const Chart& chart, std::wstring_view resolution) {
  EXPECT_EQ(product.ProductType(), chart.format);
  EXPECT_EQ(product.Resolution(), resolution);
  if (product.ProductType() == L"PDF") {
    EXPECT_EQ(firstBytes(product.FilePath(), 5), "%PDF-");
  } else {
    EXPECT_TRUE(isPng(product.FilePath()));
  }
  const std::wstring name = std::filesystem::path(product.FilePath()).filename().wstring();
  EXPECT_EQ(name.substr(0, 3), L"KTP");
}

void expectChart(const Chart& chart, std::wstring_view resolution) {
  const auto fetched = fetch(chart.key, resolution);
  ASSERT_TRUE(succeeded(fetched));
  const std::wstring key = chart.key;
  EXPECT_EQ(lastRequest(),
            requestOf("get-chart-rqs",
                      "<key>" + std::string(key.begin(), key.end()) + "</key><variant>" +
                          std::string(resolution.begin(), resolution.end()) + "</variant>"));
  expectDescription(*fetched->ChartDescriptor(), chart);
  EXPECT_EQ(fetched->ChartDescriptor()->LowRes(), chart.low);
  EXPECT_EQ(fetched->ChartDescriptor()->HighRes(), chart.high);
  ASSERT_EQ(fetched->Count(), 1);
  expectProduct(*fetched->Item(1), chart, resolution);
}

TEST_P(ChartExchange, FetchesEveryChartOfTheDirectoryInEachOfItsResolutions) {
  for (const Chart& chart : charts) {
    if (chart.low) expectChart(chart, L"LO");
    if (chart.high) expectChart(chart, L"HI");
  }
}

TEST_P(ChartExchange, FetchesBothResolutionsIntoFilesOfTheirOwnWhenNoneIsChosen) {
  const auto fetched = fetch(L"80001", L"");
  ASSERT_TRUE(succeeded(fetched));
  EXPECT_EQ(lastRequest(), requestOf("get-chart-rqs", "<key>80001</key>"));
  ASSERT_EQ(fetched->Count(), 2);
  expectProduct(*fetched->Item(1), charts.front(), L"LO");
  expectProduct(*fetched->Item(2), charts.front(), L"HI");
  const std::wstring low = fetched->Item(1)->FilePath();
  const std::wstring high = fetched->Item(2)->FilePath();
  EXPECT_NE(low, high);
  EXPECT_LT(std::filesystem::file_size(low), std::filesystem::file_size(high));
  EXPECT_EQ(fetched->Item(0), nullptr);
  EXPECT_EQ(fetched->Item(3), nullptr);
}

TEST_P(ChartExchange, SendsTheResolutionAsItWasGiven) {
  const auto fetched = fetch(L"80001", L" hi ");
  ASSERT_TRUE(succeeded(fetched));
  EXPECT_EQ(lastRequest(), requestOf("get-chart-rqs", "<key>80001</key><variant> hi </variant>"));
  ASSERT_EQ(fetched->Count(), 1);
  EXPECT_EQ(fetched->Item(1)->Resolution(), L"HI");
}

TEST_P(ChartExchange, KeepsTheFilesUntilTheStateOfTheThreadEnds) {
  std::set<std::wstring> files;
  std::thread([&] {
    simulator::use(GetParam());
    const auto fetched = fetch(L"80001", L"");
    for (const auto& product : *fetched) files.insert(product->FilePath());
    for (const auto& file : files) EXPECT_TRUE(std::filesystem::exists(file));
  }).join();
  EXPECT_EQ(files.size(), 2U);
  for (const auto& file : files) EXPECT_FALSE(std::filesystem::exists(file));
}

constexpr const wchar_t* withoutDescription =
    L"Error 91 (Object variable or With block variable not set) in procedure extractData of Class "
    L"Module GetChartRsp";

TEST_P(ChartExchange, IsRefusedAnUnknownChartAndReportsThatItHasNoDescription) {
  expectReport(withoutDescription);
  const auto fetched = fetch(L"99999", L"LO");
  EXPECT_TRUE(refused(fetched, L"Unknown chart: 99999"));
  EXPECT_EQ(fetched->Count(), 0);
  EXPECT_EQ(fetched->ChartDescriptor()->Key(), L"");
}

TEST_P(ChartExchange, IsRefusedAResolutionThatIsNotHeld) {
  expectReport(withoutDescription);
  expectReport(withoutDescription);
  EXPECT_TRUE(refused(fetch(L"80013", L"LO"), L"Chart 80013 is not held in the resolution LO"));
  EXPECT_TRUE(refused(fetch(L"80025", L"HI"), L"Chart 80025 is not held in the resolution HI"));
}

TEST_P(ChartExchange, ListsNoChartsWhenItIsRefused) {
  ChartDirectoryRqs request;
  request.abstractReq().User(L"nobody");
  const auto directory = request.submit();
  EXPECT_TRUE(refused(directory, L"Invalid user name or password"));
  EXPECT_EQ(directory->Count(), 0);
}

}  // namespace
