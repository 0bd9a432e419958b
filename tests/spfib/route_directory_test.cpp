#include <ktpnaips/core/request_document.h>
#include <ktpnaips/spfib/route_directory.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

class RouteDirectoryRequest : public testing::Test {
 protected:
  static std::string document(const std::string& scope, const std::string& content) {
    return test::requestEnvelope(test::requestStart("route-dir-rqs") + " scope=\"" + scope + "\">" +
                                 content + "</ndd:route-dir-rqs>");
  }

  RouteDirectoryRqs request;

 private:
  test::FreshSettings settings_;
};

TEST_F(RouteDirectoryRequest, AsksForDomesticRoutesAtFirst) {
  EXPECT_EQ(request.abstractReq().ElementName(), L"route-dir-rqs");
  EXPECT_EQ(request.abstractReq().Scope(), L"domestic");
  EXPECT_TRUE(request.DomesticOnly());
  EXPECT_EQ(request.Depart(), L"");
  EXPECT_EQ(request.Destination(), L"");
  EXPECT_EQ(requestDocument(request), document("domestic", "<ndd:adep/><ndd:ades/>"));
}

TEST_F(RouteDirectoryRequest, KeepsInItsScopeWhetherItIsDomestic) {
  request.DomesticOnly(false);
  EXPECT_FALSE(request.DomesticOnly());
  EXPECT_EQ(request.abstractReq().Scope(), L"international");
  EXPECT_EQ(requestDocument(request), document("international", "<ndd:adep/><ndd:ades/>"));
  request.DomesticOnly(true);
  EXPECT_EQ(request.abstractReq().Scope(), L"domestic");
  for (const wchar_t* scope : {L"Domestic", L" domestic", L"", L"all"}) {
    request.abstractReq().Scope(scope);
    EXPECT_FALSE(request.DomesticOnly());
  }
  request.abstractReq().Scope(L"domestic");
  EXPECT_TRUE(request.DomesticOnly());
}

TEST_F(RouteDirectoryRequest, WritesTheDepartureFirst) {
  request.Destination(L" ym  ml ");
  request.Depart(L" yssy ");
  EXPECT_EQ(request.Depart(), L"YSSY");
  EXPECT_EQ(request.Destination(), L"YM  ML");
  EXPECT_EQ(requestDocument(request),
            document("domestic", "<ndd:adep>YSSY</ndd:adep><ndd:ades>YM  ML</ndd:ades>"));
}

TEST_F(RouteDirectoryRequest, HasAHandlerInSubmitOnly) {
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"RouteDirectoryRequest")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

TEST(RouteRequest, WritesDepartureDestinationAndCodeIntoOneElement) {
  const test::FreshSettings settings;
  GetRouteRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"get-route-rqs");
  EXPECT_EQ(request.Depart(), L"");
  EXPECT_EQ(request.Code(), L"");
  EXPECT_EQ(request.Destination(), L"");
  EXPECT_EQ(requestDocument(request),
            test::requestWith("get-route-rqs",
                              "<ndd:route><ndd:adep/><ndd:ades/><ndd:code/></ndd:route>"));
  request.Code(L" h  1 ");
  request.Destination(L" ymml ");
  request.Depart(L" yssy ");
  EXPECT_EQ(request.Code(), L"H  1");
  EXPECT_EQ(requestDocument(request),
            test::requestWith("get-route-rqs",
                              "<ndd:route><ndd:adep>YSSY</ndd:adep><ndd:ades>YMML</ndd:ades>"
                              "<ndd:code>H  1</ndd:code></ndd:route>"));
}

TEST(RouteRequest, ReportsItsFailures) {
  const test::FreshSettings settings;
  const GetRouteRqs request;
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{test::missingObject(L"GetRoute")});
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"GetRouteRequest")});
}

TEST(RouteAnswer, HoldsTheCommonValues) {
  const test::FreshSettings settings;
  using Answer = decltype(GetRouteRqs().submit())::element_type;
  Answer response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  test::load(response, test::success("<n:route><n:code>H1</n:code></n:route>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"");
  EXPECT_EQ(response.Payload().text(), L"H1");
  EXPECT_TRUE(response.ResponseDoc());
}

TEST(RouteInADirectory, IsEmptyAtFirstAndHoldsWhatIsSet) {
  RouteSummary route;
  for (auto* property : {&route.Depart, &route.Destination, &route.RouteCode, &route.Description}) {
    EXPECT_EQ((*property)(), L"");
    (*property)(L" a  b ");
    EXPECT_EQ((*property)(), L" a  b ");
  }
}

const char* const twoRoutes =
    "<n:route><n:description> YSSY H65 YMML </n:description><n:code>h1</n:code>"
    "<n:ades>ymml</n:ades><n:adep>yssy</n:adep></n:route>"
    "<n:route><n:adep>yscb</n:adep></n:route>";

TEST(RouteDirectory, ReadsWhatItsRoutesHave) {
  RouteDirectoryRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.Count(), 0);
  test::load(response, test::success(twoRoutes));
  EXPECT_FALSE(response.Error());
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->Depart(), L"yssy");
  EXPECT_EQ(response.Item(1)->Destination(), L"ymml");
  EXPECT_EQ(response.Item(1)->RouteCode(), L"h1");
  EXPECT_EQ(response.Item(1)->Description(), L" YSSY H65 YMML ");
  EXPECT_EQ(response.Item(2)->Depart(), L"yscb");
  EXPECT_EQ(response.Item(2)->Destination(), L"");
  EXPECT_EQ(response.Item(2)->RouteCode(), L"");
  EXPECT_EQ(response.Item(2)->Description(), L"");
  EXPECT_EQ(response.Item(0), nullptr);
  EXPECT_EQ(response.Item(3), nullptr);
}

TEST(RouteDirectory, MayBeEmpty) {
  RouteDirectoryRsp response;
  test::load(response, test::success("<n:more><n:route/></n:more><route/>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Count(), 0);
}

TEST(RouteDirectory, StaysEmptyWhenItFailed) {
  RouteDirectoryRsp response;
  test::load(response,
             test::answer("<n:answer status=\"NO\">" + std::string(twoRoutes) + "</n:answer>"));
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.Count(), 0);
}

TEST(RouteDirectory, TakesRoutesFromTheHost) {
  RouteDirectoryRsp response;
  const auto route = std::make_shared<RouteSummary>();
  response.Add(nullptr);
  response.Add(route);
  EXPECT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1), route);
}

TEST(RouteDirectory, ReportsAFailingExtractionAndDropsTheRouteInHand) {
  EXPECT_EQ(test::outcomesOfLoading<RouteDirectoryRsp>(test::success(twoRoutes)),
            test::Outcomes{test::outOfMemory(L"extractData", L"RouteDirectoryRsp")});
  const auto document = test::parsed(test::success(
      "<n:route><n:adep>yssy</n:adep><n:description>a description too long to be stored in "
      "place</n:description></n:route>"));
  test::outcomesOfFailures([&] {
    const auto response = std::make_shared<RouteDirectoryRsp>();
    return [&document, response] {
      response->ResponseDoc(document);
      for (const auto& route : *response) EXPECT_NE(route->Description(), L"");
    };
  });
}

}  // namespace
}  // namespace ktpnaips
