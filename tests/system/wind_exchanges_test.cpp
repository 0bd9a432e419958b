#include "tests/support/date_time.h"
#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/spfib/wind_temp_profile.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace ktpnaips;
using ktpnaips::test::at;
using simulator::holds;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

class WindExchange : public simulator::Exchange {};

INSTANTIATE_TEST_SUITE_P(Schemes, WindExchange, testing::Bool(), simulator::schemeName);

std::shared_ptr<WindTempStage> stage(const wchar_t* depart, const wchar_t* destination,
                                     DateTime etd) {
  auto made = std::make_shared<WindTempStage>();
  made->Depart(depart);
  made->Destination(destination);
  made->ETD(etd);
  return made;
}

TEST_P(WindExchange, ProfilesEachStageAlongItsRoute) {
  WindTempProfileRqs request;
  request.TAS(L" n0120 ");
  const auto first = stage(L" yssy ", L"yscb", at(2026, 11, 20, 22));
  first->Route(L" wol ");
  const auto second = stage(L"YSCB", L"YMML", at(2026, 11, 21, 0, 30));
  second->Route(L"  ");
  request.addStage(first);
  request.addStage(second);
  request.addStage(stage(L"YMML", L"YMAV", at(2026, 11, 21, 4)));
  const auto profile = request.submit();
  ASSERT_TRUE(succeeded(profile));
  EXPECT_EQ(
      lastRequest(),
      requestOf("wind-temp-profile-rqs",
                "<stage><adep>YSSY</adep><ades>YSCB</ades><etd>2026-11-20T22:00:00Z</etd>"
                "<route>WOL</route></stage>"
                "<stage><adep>YSCB</adep><ades>YMML</ades><etd>2026-11-21T00:30:00Z</etd>"
                "<route>DCT</route></stage>"
                "<stage><adep>YMML</adep><ades>YMAV</ades><etd>2026-11-21T04:00:00Z</etd></stage>"
                "<tas>N0120</tas>"));

  // 41 and 90 NM at 120 kt.
  const std::wstring text = profile->Content();
  EXPECT_EQ(text.find(L"WIND AND TEMPERATURE PROFILE\nPREPARED 2026-11-20 0600 UTC FOR DEMO\n"
                      L"VALID FROM 2026-11-20 2200 UTC TO 2026-11-21 04"),
            0U);
  EXPECT_TRUE(holds(text, L"\nYSSY TO YSCB  ETD 2026-11-20T22:00:00Z  TAS N0120\n"));
  EXPECT_TRUE(holds(text, L"  YSSY         202200  "));
  EXPECT_TRUE(holds(text, L"  WOL          202221  "));
  EXPECT_TRUE(holds(text, L"  YSCB         202306  "));
  EXPECT_TRUE(holds(text, L"\nYSCB TO YMML  ETD 2026-11-21T00:30:00Z  TAS N0120\n"));
  EXPECT_TRUE(holds(text, L"\nYMML TO YMAV  ETD 2026-11-21T04:00:00Z  TAS N0120\n"));
  EXPECT_LT(text.find(L"YSSY TO YSCB"), text.find(L"YSCB TO YMML"));
  EXPECT_LT(text.find(L"YSCB TO YMML"), text.find(L"YMML TO YMAV"));
  EXPECT_EQ(profile->Product(), L"");
  EXPECT_EQ(profile->Count(), 0);
}

TEST_P(WindExchange, AsksForTenStagesAtMost) {
  WindTempProfileRqs request;
  request.TAS(L"N0120");
  std::string stages;
  for (int i = 0; i < 11; ++i) request.addStage(stage(L"YSSY", L"YSCB", at(2026, 11, 20, 22)));
  for (int i = 0; i < 10; ++i) {
    stages +=
        "<stage><adep>YSSY</adep><ades>YSCB</ades><etd>2026-11-20T22:00:00Z</etd>"
        "</stage>";
  }
  EXPECT_TRUE(succeeded(request.submit()));
  EXPECT_EQ(lastRequest(), requestOf("wind-temp-profile-rqs", stages + "<tas>N0120</tas>"));
}

TEST_P(WindExchange, IsRefusedForAWrongPassword) {
  WindTempProfileRqs request;
  request.abstractReq().User(L"demo");
  request.abstractReq().Password(L"wrong");
  const auto profile = request.submit();
  EXPECT_TRUE(refused(profile, L"Invalid user name or password"));
  EXPECT_EQ(profile->Content(), L"");
}

}  // namespace
