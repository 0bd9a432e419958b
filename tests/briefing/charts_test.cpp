#include <ktpnaips/briefing/charts.h>
#include <ktpnaips/core/request_document.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/date_time.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using test::at;

class ChartRequest : public testing::Test {
 protected:
  static std::string document(const std::string& content) {
    return test::requestWith("get-chart-rqs", content);
  }

  GetChartRqs request;

 private:
  test::FreshSettings settings_;
};

TEST_F(ChartRequest, WritesOnlyAnEmptyKeyAtFirst) {
  EXPECT_EQ(request.abstractReq().ElementName(), L"get-chart-rqs");
  EXPECT_EQ(request.Key(), L"");
  EXPECT_EQ(request.Resolution(), L"");
  EXPECT_EQ(requestDocument(request), document("<ndd:key/>"));
}

TEST_F(ChartRequest, WritesItsResolutionAfterItsKey) {
  request.Resolution(L"LO");
  request.Key(L" k  1 ");
  EXPECT_EQ(request.Key(), L" k  1 ");
  EXPECT_EQ(requestDocument(request),
            document("<ndd:key> k  1 </ndd:key><ndd:variant>LO</ndd:variant>"));
}

TEST_F(ChartRequest, StoresAResolutionExactlyAsGiven) {
  for (const std::wstring resolution : {L"LO", L"HI", L"lo", L"Hi", L" hi ", L"  lO", L"", L"  "}) {
    request.Resolution(resolution);
    EXPECT_EQ(request.Resolution(), resolution);
  }
  request.Resolution(L" hi ");
  EXPECT_EQ(requestDocument(request), document("<ndd:key/><ndd:variant> hi </ndd:variant>"));
  request.Resolution(L" ");
  EXPECT_EQ(requestDocument(request), document("<ndd:key/><ndd:variant> </ndd:variant>"));
  request.Resolution(L"");
  EXPECT_EQ(requestDocument(request), document("<ndd:key/>"));
}

TEST_F(ChartRequest, KeepsItsResolutionWhenAnotherIsRefused) {
  request.Resolution(L"hi");
  for (const std::wstring refused : {L"MED", L"H", L"HIGH", L"L O", L"\tLO", L"HILO"}) {
    request.Resolution(refused);
    EXPECT_EQ(request.Resolution(), L"hi");
  }
  request.Resolution(std::wstring(100'000, L'H'));
  request.Resolution(std::wstring(L"LO\0", 3));
  EXPECT_EQ(request.Resolution(), L"hi");
}

TEST_F(ChartRequest, HasAHandlerInSubmitOnly) {
  request.Resolution(L"LO");
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"GetChartRequest")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

TEST(ChartDirectoryRequest, CarriesOnlyTheHeader) {
  const test::FreshSettings settings;
  const ChartDirectoryRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"chart-dir-rqs");
  EXPECT_EQ(requestDocument(request), test::requestWith("chart-dir-rqs", ""));
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"ChartDir")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

TEST(ChartDescription, IsEmptyAtFirstAndHoldsWhatIsSet) {
  ChartDescriptor chart;
  EXPECT_EQ(chart.StoreTime(), at(1899, 12, 30));
  EXPECT_EQ(chart.Name(), L"");
  EXPECT_EQ(chart.Key(), L"");
  EXPECT_FALSE(chart.LowRes());
  EXPECT_FALSE(chart.HighRes());
  EXPECT_FALSE(chart.PDF());
  EXPECT_EQ(chart.ProductType(), L"");
  chart.StoreTime(at(2026, 3, 7));
  EXPECT_EQ(chart.StoreTime(), at(2026, 3, 7));
  for (auto* property : {&chart.Name, &chart.Key, &chart.ProductType}) {
    (*property)(L" a  b ");
    EXPECT_EQ((*property)(), L" a  b ");
  }
  for (auto* property : {&chart.LowRes, &chart.HighRes, &chart.PDF}) {
    (*property)(true);
    EXPECT_TRUE((*property)());
  }
}

const char* const twoCharts =
    "<n:chart key=\" k1 \"><n:variant>HI</n:variant><n:type>PNG</n:type>"
    "<n:store-time>2026-03-07T01:02:03Z</n:store-time><n:name> SIGWX  A </n:name></n:chart>"
    "<n:chart key=\"k2\"/>";

TEST(ChartDirectory, ReadsAsFailedAndEmptyUntilItIsLoaded) {
  const ChartDirectoryRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.Count(), 0);
}

TEST(ChartDirectory, ReadsWhatItsChartsHave) {
  const test::FailureRecorder recorder;
  ChartDirectoryRsp response;
  test::load(response, test::success(twoCharts));
  EXPECT_FALSE(response.Error());
  ASSERT_EQ(response.Count(), 2);
  const auto first = response.Item(1);
  EXPECT_EQ(first->Key(), L" k1 ");
  EXPECT_EQ(first->Name(), L" SIGWX  A ");
  EXPECT_EQ(first->StoreTime(), at(2026, 3, 7, 1, 2, 3));
  EXPECT_EQ(first->ProductType(), L"PNG");
  EXPECT_TRUE(first->LowRes());
  EXPECT_TRUE(first->HighRes());
  EXPECT_FALSE(first->PDF());
  const auto second = response.Item(2);
  EXPECT_EQ(second->Key(), L"k2");
  EXPECT_EQ(second->Name(), L"");
  EXPECT_EQ(second->StoreTime(), at(1899, 12, 30));
  EXPECT_EQ(second->ProductType(), L"");
  EXPECT_FALSE(second->LowRes());
  EXPECT_FALSE(second->HighRes());
  EXPECT_EQ(response.Item(0), nullptr);
  EXPECT_EQ(response.Item(3), nullptr);
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST(ChartDirectory, TakesAnUnreadableTimeForThatOf1970) {
  ChartDirectoryRsp response;
  test::load(response, test::success("<n:chart key=\"k\"><n:store-time>now</n:store-time>"
                                     "</n:chart>"));
  EXPECT_EQ(response.Item(1)->StoreTime(), at(1970, 1, 1));
}

TEST(ChartDirectory, TakesNoVariantThatIsNotTheChartsOwnChild) {
  ChartDirectoryRsp response;
  test::load(response, test::success("<n:chart key=\"k\"><n:more><n:variant/></n:more><variant/>"
                                     "</n:chart><n:variant/>"));
  ASSERT_EQ(response.Count(), 1);
  EXPECT_FALSE(response.Item(1)->LowRes());
  EXPECT_FALSE(response.Item(1)->HighRes());
}

TEST(ChartDirectory, EndsAtAChartWithoutAKey) {
  const test::FailureRecorder recorder;
  ChartDirectoryRsp response;
  test::load(response, test::success("<n:chart key=\"k1\"><n:name>a</n:name></n:chart>"
                                     "<n:chart><n:name>b</n:name></n:chart>"
                                     "<n:chart key=\"k3\"/>"));
  EXPECT_FALSE(response.Error());
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->Name(), L"a");
  EXPECT_EQ(response.Item(2)->Name(), L"");
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 94 (Invalid use of Null) in procedure extractData of Class "
                          L"Module ChartDirRsp"});
}

TEST(ChartDirectory, MayBeEmptyOrFailed) {
  ChartDirectoryRsp empty;
  test::load(empty, test::success("<n:more><n:chart/></n:more>"));
  EXPECT_FALSE(empty.Error());
  EXPECT_EQ(empty.Count(), 0);
  ChartDirectoryRsp failed;
  test::load(failed,
             test::answer("<n:answer status=\"NO\">" + std::string(twoCharts) + "</n:answer>"));
  EXPECT_TRUE(failed.Error());
  EXPECT_EQ(failed.Count(), 0);
}

TEST(ChartDirectory, TakesChartsFromTheHost) {
  ChartDirectoryRsp response;
  const auto chart = std::make_shared<ChartDescriptor>();
  response.Add(nullptr);
  response.Add(chart);
  EXPECT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1), chart);
}

}  // namespace
}  // namespace ktpnaips
