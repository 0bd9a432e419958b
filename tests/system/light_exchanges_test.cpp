#include "tests/support/date_time.h"
#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/briefing/light.h>
#include <ktpnaips/core/conversions.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>

using namespace ktpnaips;
using ktpnaips::test::at;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

class LightExchange : public simulator::Exchange {
 protected:
  LightExchange() { request.ForDate(at(2026, 12, 21, 23, 59)); }

  FirstLastLightRqs request;
};

INSTANTIATE_TEST_SUITE_P(Schemes, LightExchange, testing::Bool(), simulator::schemeName);

/// The service's text is this time, give or take what almanacs differ by.
void expectNear(const std::wstring& actual, DateTime expected) {
  const DateTime time = Utilities::convertISODateTime(actual);
  EXPECT_EQ(actual, isoDateTime(time));
  EXPECT_LE(std::chrono::abs(time - expected), std::chrono::minutes(3)) << text::toUtf8(actual);
}

/// Sydney on this day: 05:12 to 20:35 by the clocks there, which are 11 hours ahead.
void expectSydney(const FirstLastLightRsp& light) {
  EXPECT_EQ(light.ForDate(), L"2026-12-21");
  expectNear(light.FirstLight(), at(2026, 12, 20, 18, 12));
  expectNear(light.LastLight(), at(2026, 12, 21, 9, 35));
}

std::string requestAt(const std::string& point) {
  return requestOf("fl-ll-rqs", "<date>2026-12-21</date>" + point);
}

TEST_P(LightExchange, GivesFirstAndLastLightAtANamedPlace) {
  request.setNamed(L" yssy ");
  const auto light = request.submit();
  ASSERT_TRUE(succeeded(light));
  EXPECT_EQ(lastRequest(), requestAt("<point><loc>YSSY</loc></point>"));
  expectSydney(*light);
}

TEST_P(LightExchange, GivesThemAtCoordinates) {
  request.setNamed(L"YSSY");
  const auto named = request.submit();
  request.setLatLon(-33.946, 151.177);
  const auto light = request.submit();
  ASSERT_TRUE(succeeded(light));
  EXPECT_EQ(
      lastRequest(),
      requestAt("<point><coord><lat>-33.946000</lat><long>151.177000</long></coord></point>"));
  EXPECT_EQ(light->ForDate(), named->ForDate());
  EXPECT_EQ(light->FirstLight(), named->FirstLight());
  EXPECT_EQ(light->LastLight(), named->LastLight());
}

TEST_P(LightExchange, GivesThemAtABearingAndDistance) {
  request.setBearingDistance(L" sy ", 45, 5);
  const auto light = request.submit();
  ASSERT_TRUE(succeeded(light));
  const std::string expected = requestAt(
      "<point><bear-dist><loc>SY</loc><bear>45</bear><dist>005</dist></bear-dist></point>");
  EXPECT_EQ(lastRequest(), expected);
  expectSydney(*light);

  request.setNamed(L"sy045005");
  EXPECT_EQ(request.submit()->FirstLight(), light->FirstLight());
  EXPECT_EQ(lastRequest(), expected);
}

TEST_P(LightExchange, TakesAPointOfTheHost) {
  request.Point(std::make_shared<NamedPoint>(L"sy"));
  const auto light = request.submit();
  ASSERT_TRUE(succeeded(light));
  EXPECT_EQ(lastRequest(), requestAt("<point><loc>SY</loc></point>"));
  expectSydney(*light);
}

TEST_P(LightExchange, LeavesTheTimesEmptyInThePolarNight) {
  request.ForDate(at(2026, 6, 21));
  request.setLatLon(-85, 110);
  const auto light = request.submit();
  ASSERT_TRUE(succeeded(light));
  EXPECT_EQ(light->ForDate(), L"2026-06-21");
  EXPECT_EQ(light->FirstLight(), L"");
  EXPECT_EQ(light->LastLight(), L"");
}

TEST_P(LightExchange, IsRefusedWithoutAPlaceAndForAnUnknownOne) {
  const auto missing = request.submit();
  EXPECT_EQ(lastRequest(), requestAt("<point/>"));
  EXPECT_TRUE(refused(missing, L"A place is missing"));
  request.setNamed(L"QQQQ");
  const auto unknown = request.submit();
  EXPECT_TRUE(refused(unknown, L"Unknown place: QQQQ"));
  EXPECT_EQ(unknown->ForDate() + unknown->FirstLight() + unknown->LastLight(), L"");
}

}  // namespace
