#include <ktpnaips/briefing/charts.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>

#include "tests/support/data_folder.h"
#include "tests/support/date_time.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using test::at;

const char* const description =
    "<n:desc key=\" k1 \"><n:type>PNG</n:type><n:store-time>2026-03-07T01:02:03Z</n:store-time>"
    "<n:name> SIGWX  A </n:name><n:res><n:product-res>HI</n:product-res></n:res></n:desc>";

/// A product of the answer; "QUJD" is "ABC".
std::string product(const std::string& attributes, const std::string& base64 = "QUJD") {
  return "<n:content " + attributes + "><n:content>" + base64 + "</n:content></n:content>";
}

std::wstring reportOf(const std::wstring& error) {
  return error + L" in procedure extractData of Class Module GetChartRsp";
}

const std::wstring missingNode =
    reportOf(L"Error 91 (Object variable or With block variable not set)");
const std::wstring missingAttribute = reportOf(L"Error 94 (Invalid use of Null)");

TEST(ChartAnswer, ReadsAsFailedAndEmptyUntilItIsLoaded) {
  const GetChartRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(response.Item(1), nullptr);
  EXPECT_EQ(response.ChartDescriptor(), nullptr);
}

TEST(ChartAnswer, ReadsTheDescription) {
  GetChartRsp response;
  test::load(response, test::success(description));
  EXPECT_FALSE(response.Error());
  ASSERT_NE(response.ChartDescriptor(), nullptr);
  const ChartDescriptor& chart = *response.ChartDescriptor();
  EXPECT_EQ(chart.Key(), L" k1 ");
  EXPECT_EQ(chart.Name(), L" SIGWX  A ");
  EXPECT_EQ(chart.StoreTime(), at(2026, 3, 7, 1, 2, 3));
  EXPECT_EQ(chart.ProductType(), L"PNG");
  EXPECT_FALSE(chart.LowRes());
  EXPECT_TRUE(chart.HighRes());
  EXPECT_FALSE(chart.PDF());
  EXPECT_EQ(response.Count(), 0);
}

TEST(ChartAnswer, TakesAnUnreadableTimeForThatOf1970) {
  GetChartRsp response;
  test::load(response,
             test::success("<n:desc key=\"k\"><n:store-time>now</n:store-time></n:desc>"));
  EXPECT_EQ(response.ChartDescriptor()->StoreTime(), at(1970, 1, 1));
}

TEST(ChartAnswer, LeavesMissingFieldsOfTheDescriptionUnset) {
  const test::FailureRecorder recorder;
  GetChartRsp response;
  test::load(response, test::success("<n:desc key=\"\"/>"));
  ASSERT_NE(response.ChartDescriptor(), nullptr);
  EXPECT_EQ(response.ChartDescriptor()->Name(), L"");
  EXPECT_EQ(response.ChartDescriptor()->StoreTime(), at(1899, 12, 30));
  EXPECT_EQ(response.ChartDescriptor()->ProductType(), L"");
  EXPECT_FALSE(response.ChartDescriptor()->LowRes());
  EXPECT_FALSE(response.ChartDescriptor()->HighRes());
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST(ChartAnswer, FindsItsResolutionsAmongThoseOfTheDescription) {
  const auto resolutions = [](const std::string& res) {
    GetChartRsp response;
    test::load(response, test::success("<n:desc key=\"k\">" + res + "</n:desc>"));
    return std::string(response.ChartDescriptor()->LowRes() ? "LO" : "") +
           (response.ChartDescriptor()->HighRes() ? "HI" : "");
  };
  const auto res = [](const std::string& text) {
    return "<n:res><n:product-res>" + text + "</n:product-res></n:res>";
  };
  EXPECT_EQ(resolutions(""), "");
  EXPECT_EQ(resolutions(res("LO")), "LO");
  EXPECT_EQ(resolutions(res("HI")), "HI");
  EXPECT_EQ(resolutions(res("HI") + res("MED") + res("LO")), "LOHI");
  EXPECT_EQ(resolutions("<n:res><n:product-res>LO</n:product-res><n:product-res>HI"
                        "</n:product-res></n:res>"),
            "LOHI");
  EXPECT_EQ(resolutions(res("lo") + res(" HI") + "<n:res>LO</n:res>"), "");
}

TEST(ChartAnswer, WritesEachProductToATemporaryFile) {
  GetChartRsp response;
  test::load(response, test::success(std::string(description) + product("type=\"PNG\" res=\"LO\"") +
                                     product("type=\"GIF\"", "AAECAwQ/gP8=")));
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->ProductType(), L"PNG");
  EXPECT_EQ(response.Item(1)->Resolution(), L"LO");
  EXPECT_EQ(response.Item(2)->ProductType(), L"GIF");
  EXPECT_EQ(response.Item(2)->Resolution(), L"");
  EXPECT_EQ(response.Item(0), nullptr);
  EXPECT_EQ(response.Item(3), nullptr);
  const std::filesystem::path first = response.Item(1)->FilePath();
  const std::filesystem::path second = response.Item(2)->FilePath();
  EXPECT_NE(first, second);
  for (const auto& file : {first, second}) {
    EXPECT_TRUE(file.is_absolute());
    EXPECT_EQ(std::filesystem::canonical(file.parent_path()),
              std::filesystem::canonical(std::filesystem::temp_directory_path()));
    EXPECT_EQ(file.filename().wstring().substr(0, 3), L"KTP");
  }
  EXPECT_EQ(test::contentOf(first), "ABC");
  EXPECT_EQ(test::contentOf(second), std::string("\0\x01\x02\x03\x04?\x80\xff", 8));
}

TEST(ChartAnswer, LosesItsFilesWithTheStateOfItsThread) {
  std::filesystem::path file;
  std::thread([&] {
    GetChartRsp response;
    test::load(response, test::success(description + product("type=\"PNG\"")));
    file = response.Item(1)->FilePath();
    EXPECT_TRUE(std::filesystem::exists(file));
  }).join();
  EXPECT_FALSE(file.empty());
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(ChartAnswer, FindsItsProductsAnywhereInTheDocument) {
  GetChartRsp response;
  test::load(response, test::answer("<n:answer status=\"SUCCESS\">" + std::string(description) +
                                    "<n:products><n:deeper>" + product("type=\"A\"") +
                                    "</n:deeper></n:products></n:answer><n:more>" +
                                    product("type=\"B\"") + "</n:more>"));
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->ProductType(), L"A");
  EXPECT_EQ(response.Item(2)->ProductType(), L"B");
}

TEST(ChartAnswer, ListsNoProductWithoutContent) {
  const test::FailureRecorder recorder;
  GetChartRsp response;
  test::load(response, test::success(std::string(description) +
                                     "<n:content type=\"A\"/><n:content type=\"B\">QUJD</n:content>"
                                     "<n:content type=\"C\"><content/></n:content>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST(ChartAnswer, EndsWithoutADescriptionOfItsOwn) {
  const test::FailureRecorder recorder;
  GetChartRsp response;
  test::load(response, test::success("<n:more>" + std::string(description) + "</n:more>" +
                                     product("type=\"PNG\"")));
  EXPECT_FALSE(response.Error());
  ASSERT_NE(response.ChartDescriptor(), nullptr);
  EXPECT_EQ(response.ChartDescriptor()->Key(), L"");
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(recorder.reports(), test::Reports{missingNode});
}

TEST(ChartAnswer, EndsAtADescriptionWithoutAKey) {
  const test::FailureRecorder recorder;
  GetChartRsp response;
  test::load(response,
             test::success("<n:desc><n:name>a</n:name></n:desc>" + product("type=\"PNG\"")));
  ASSERT_NE(response.ChartDescriptor(), nullptr);
  EXPECT_EQ(response.ChartDescriptor()->Name(), L"");
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(recorder.reports(), test::Reports{missingAttribute});
}

TEST(ChartAnswer, EndsAtAProductWithoutAType) {
  const test::FailureRecorder recorder;
  GetChartRsp response;
  test::load(response, test::success(description + product("type=\"A\"") + product("res=\"LO\"") +
                                     product("type=\"C\"")));
  ASSERT_EQ(response.Count(), 2);
  EXPECT_NE(response.Item(1)->FilePath(), L"");
  EXPECT_EQ(response.Item(2)->ProductType(), L"");
  EXPECT_EQ(response.Item(2)->Resolution(), L"");
  EXPECT_EQ(response.Item(2)->FilePath(), L"");
  EXPECT_EQ(recorder.reports(), test::Reports{missingAttribute});
}

TEST(ChartAnswer, EndsAtBrokenOrEmptyBase64) {
  const auto reportsOf = [](const std::string& base64) {
    const test::FailureRecorder recorder;
    GetChartRsp response;
    test::load(response, test::success(description + product("type=\"A\" res=\"HI\"", base64) +
                                       product("type=\"B\"")));
    EXPECT_EQ(response.Count(), 1);
    EXPECT_EQ(response.Item(1)->ProductType(), L"A");
    EXPECT_EQ(response.Item(1)->Resolution(), L"HI");
    EXPECT_EQ(response.Item(1)->FilePath(), L"");
    return recorder.reports();
  };
  EXPECT_EQ(reportsOf("QUJ"),
            test::Reports{reportOf(L"Error -2147221504 (Input string is not valid Base64.)")});
  EXPECT_EQ(reportsOf(""), test::Reports{reportOf(L"Error 9 (Subscript out of range)")});
}

TEST(ChartAnswer, IsReadEvenWhenItFailed) {
  const test::FailureRecorder recorder;
  GetChartRsp response;
  test::load(response, test::answer("<n:answer status=\"FAILURE\">" + std::string(description) +
                                    product("type=\"PNG\"") + "<n:info>Old</n:info></n:answer>"));
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"NAIPS Error: FAILURE\r\nInfo: Old\r\n");
  ASSERT_NE(response.ChartDescriptor(), nullptr);
  EXPECT_EQ(response.ChartDescriptor()->Key(), L" k1 ");
  ASSERT_EQ(response.Count(), 1);
  EXPECT_EQ(test::contentOf(std::filesystem::path(response.Item(1)->FilePath())), "ABC");
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST(ChartAnswer, ReportsARefusalOrASoapFaultForItsMissingDescription) {
  for (const char* payload :
       {"<n:answer status=\"FAILURE\"><n:info>No such chart</n:info></n:answer>",
        "<s:Fault><faultcode>s:Server</faultcode><faultstring>no</faultstring></s:Fault>"}) {
    const test::FailureRecorder recorder;
    GetChartRsp response;
    test::load(response, test::answer(payload));
    EXPECT_TRUE(response.Error());
    EXPECT_EQ(response.Count(), 0);
    EXPECT_EQ(recorder.reports(), test::Reports{missingNode});
  }
}

TEST(ChartAnswer, IsNotReadWithoutAPayload) {
  const test::FailureRecorder recorder;
  GetChartRsp response;
  test::load(response, "<other/>");
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ChartDescriptor(), nullptr);
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

}  // namespace
}  // namespace ktpnaips
