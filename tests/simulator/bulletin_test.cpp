#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/simulator/answers.h"
#include "tests/simulator/requests.h"
#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

constexpr const char* standing = "1001";  // of a fresh service
constexpr const char* first = "1002";     // that is asked for

class Bulletins : public ServiceTest {
 protected:
  std::string brief(std::string_view name, std::string_view children) {
    return answer("/naips/briefing-service", request(name, children));
  }
  std::string ask(const std::vector<Child>& spec, const std::string& before = "") {
    return brief("spfib-rqs", before + element("spfib", joined(spec)));
  }
  std::string numbered(std::string_view name, std::string_view number) {
    return brief(name, element("number", number));
  }
  std::vector<std::string> listed(std::string_view group = "") {
    return texts(brief("active-spfib-dir-rqs",
                       group.empty() ? "" : element("group-id", element("group-name", group))),
                 "number");
  }
};

std::vector<Child> bulletinWith(const Child& stageChild) {
  return with(bulletin(), {element("stage", joined(with(bulletinStage(), stageChild)))});
}

TEST_F(Bulletins, TellTheFlightTheWeatherAndTheNotams) {
  const std::string text = ask(bulletin());
  EXPECT_THAT(text, HasSubstr("<naips:content>SPECIFIC PRE-FLIGHT INFORMATION BULLETIN 1002\n"));
  for (const char* part :
       {"AIRCRAFT VHABC  TAS N0450  DOMESTIC\n", "\nSTAGE 1 YSSY TO YMML\n",
        "ETD 2026-11-20T22:00:00Z  LEVEL F350\n", "ROUTE DCT WOL DCT 3352S15112E DCT\n",
        "ALTERNATE YMAV  LEVEL F120\n", "WIND AND TEMPERATURE F350\n", "  TAF YSSY ", "  TAF YSCB ",
        "  TAF YMAV ", "AREA FORECAST 21\n", "\nSIGMET\n", "-YSSY RWY 07/25 NOT AVBL DUE WIP\n",
        "-YMMM R421A ACT"}) {
    EXPECT_THAT(text, HasSubstr(part));
  }
}

TEST_F(Bulletins, LeaveOutWhatWasNotAskedFor) {
  const std::string text = ask(with(bulletin(), {element("exp-wind", "false")}));
  EXPECT_THAT(text, Not(HasSubstr("WIND AND TEMPERATURE F350")));
  EXPECT_THAT(text, Not(HasSubstr("<naips:product")));
  EXPECT_THAT(text, Not(HasSubstr("AIP AMENDMENT")));
}

TEST_F(Bulletins, BringFullNotamsGeneralOnesAndChartsOnRequest) {
  std::vector<Child> spec = bulletin();
  for (const char* flag : {"full-text-notam", "intl-series-notam", "charts", "mid-sigwx-gpwt"}) {
    spec = with(spec, {element(flag, "true")});
  }
  const std::string text = ask(spec);
  EXPECT_THAT(text, HasSubstr("E) RWY 07/25 NOT AVBL DUE WIP\n"));
  EXPECT_THAT(text, HasSubstr("AIP AMENDMENT"));
  const std::vector<std::string> products = texts(text, "content");
  ASSERT_EQ(products.size(), 5U);
  for (std::size_t i = 1; i < products.size(); ++i) {
    EXPECT_THAT(decodeBase64(products[i]), ::testing::StartsWith("\x89PNG\r\n"));
  }
}

TEST_F(Bulletins, AreListedByTheirNumbers) {
  EXPECT_THAT(listed(), ElementsAre(standing));
  ask(bulletin());
  const std::string text = brief("active-spfib-dir-rqs", "");
  EXPECT_THAT(texts(text, "number"), ElementsAre(standing, first));
  EXPECT_THAT(texts(text, "acid"), ElementsAre("VHNSM", "VHABC"));
  EXPECT_THAT(texts(text, "dtg"), Each("2026-11-20T06:00:00Z"));
}

TEST_F(Bulletins, AreListedByTheirGroup) {
  ask(bulletin(), element("group-id", element("group-name", "RESCUE")));
  EXPECT_THAT(listed("rescue"), ElementsAre(first));
  EXPECT_THAT(listed("CLUB"), ElementsAre(standing));
  EXPECT_THAT(listed("NOBODY"), IsEmpty());
}

TEST_F(Bulletins, AreReturnedAsTheyWereAskedFor) {
  ask(bulletin(), element("duration", "PT6H"));
  const std::string text = numbered("get-spfib-rqs", first);
  EXPECT_EQ(simtest::text(text, "duration"), "PT6H");
  EXPECT_EQ(simtest::text(text, "tas"), "N0450");
  EXPECT_EQ(simtest::text(text, "etd"), "2026-11-20T22:00:00Z");
  for (const char* part :
       {"<naips:adep><naips:loc>YSSY</naips:loc></naips:adep>",
        "<naips:ades><naips:loc>YMML</naips:loc></naips:ades><naips:weight-category>L<",
        "<naips:waypoints><naips:loc>3352S15112E</naips:loc></naips:waypoints>",
        "<naips:alternate><naips:ades><naips:loc>YMAV</naips:loc></naips:ades>"
        "<naips:level>F120</naips:level></naips:alternate>",
        "<naips:additional-loc>YSCB</naips:additional-loc><naips:area>21</naips:area>",
        "<naips:exp-wind>true</naips:exp-wind>", "<naips:variant>LO</naips:variant>"}) {
    EXPECT_THAT(text, HasSubstr(part));
  }
}

TEST_F(Bulletins, ReturnEveryKindOfPlaceAsCompactText) {
  ask(bulletinWith(
      {element("adep", element("bear-dist", element("loc", "SY") + element("bear", "45") +
                                                element("dist", "025")))}));
  EXPECT_THAT(numbered("get-spfib-rqs", first),
              HasSubstr("<naips:adep><naips:loc>SY045025</naips:loc></naips:adep>"));
}

TEST_F(Bulletins, KeepUpToTenStages) {
  const std::string stage = element("stage", joined(bulletinStage()));
  std::string stages;
  for (int i = 0; i < 10; ++i) {
    stages += stage;
  }
  EXPECT_THAT(ask(with(bulletin(), {stages})), HasSubstr("\nSTAGE 10 YSSY TO YMML\n"));
  EXPECT_THAT(texts(numbered("get-spfib-rqs", first), "etd"), SizeIs(10));
  EXPECT_THAT(ask(with(bulletin(), {stages + stage})),
              HasSubstr("Element 'stage': This element is not expected. Expected is ( tas )."));
}

TEST_F(Bulletins, TakeNineLocationsAndFiveAreasAndNoMore) {
  const auto repeated = [](const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
      all += text;
    }
    return all;
  };
  const std::string location = element("additional-loc", "YSCB");
  const std::string area = element("area", "21");
  EXPECT_THAT(ask(bulletinWith({repeated(location, 9)})), HasSubstr("SUCCESS"));
  EXPECT_THAT(ask(bulletinWith({repeated(location, 10)})),
              HasSubstr("Element 'additional-loc': This element is not expected."));
  EXPECT_THAT(ask(bulletinWith({repeated(area, 5)})), HasSubstr("SUCCESS"));
  EXPECT_THAT(ask(bulletinWith({repeated(area, 6)})),
              HasSubstr("Element 'area': This element is not expected."));
}

TEST_F(Bulletins, FollowAStandardRouteByItsCode) {
  EXPECT_THAT(ask(bulletinWith({element("route", element("route-id", "A1"))})),
              HasSubstr("ROUTE DCT WOL H65 RAZZI Q29 LIZZI DCT\n"));
}

TEST_F(Bulletins, AreUpdatedForANewDuration) {
  ask(bulletin(), element("duration", "PT06H"));
  const std::string stage = element("stage", "", "include='true'");
  const std::string text =
      brief("update-spfib-rqs", element("duration", "12") + element("number", first) + stage);
  EXPECT_THAT(text,
              AllOf(HasSubstr("<naips:update-spfib-rsp "), HasSubstr("BULLETIN 1002\n"),
                    HasSubstr("\nSTAGE 1 YSSY TO YMML\n"), HasSubstr("TO 2026-11-20 1800 UTC\n")));
  EXPECT_EQ(simtest::text(numbered("get-spfib-rqs", first), "duration"), "PT12H");
}

TEST_F(Bulletins, AreUpdatedForThePeriodOfTheRequest) {
  const std::string text = brief(
      "update-spfib-rqs", element("period", element("from", "2026-11-20T22:00:00Z") +
                                                element("till", "2026-11-21T08:00:00Z")) +
                              element("number", standing) + element("stage", "", "include='true'"));
  EXPECT_THAT(text, HasSubstr("VALID FROM 2026-11-20 2200 UTC TO 2026-11-21 0800 UTC\n"));
  EXPECT_EQ(simtest::text(numbered("get-spfib-rqs", standing), "duration"), "PT10H");
}

TEST_F(Bulletins, TellOnlyTheIncludedStagesOfAnUpdate) {
  const std::string stages =
      element("stage", joined(bulletinStage())) +
      element("stage", joined(with(bulletinStage(), {element("ades", loc("YSCB"))})));
  ask(with(bulletin(), {stages}));
  const std::string text =
      brief("update-spfib-rqs", element("number", first) + element("stage", "", "include='true'"));
  EXPECT_THAT(text, HasSubstr("\nSTAGE 1 YSSY TO YMML\n"));
  EXPECT_THAT(text, Not(HasSubstr("\nSTAGE 2 YSSY TO YSCB\n")));
}

TEST_F(Bulletins, ListTheNotamsThatTheirTextTells) {
  const std::string content = simtest::text(ask(bulletin()), "content");
  const std::string list = numbered("view-notam-list-for-spfib-rqs", first);
  EXPECT_EQ(simtest::text(list, "spfib"), first);
  const std::vector<std::string> keys = texts(list, "notamKey");
  const std::vector<std::string> summaries = texts(list, "summary");
  ASSERT_EQ(keys.size(), summaries.size());
  EXPECT_GT(keys.size(), 5U);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    EXPECT_THAT(content, HasSubstr("  " + keys[i] + ' ' + summaries[i] + '\n'));
  }
}

TEST_F(Bulletins, ListNotamsByPlaceSeriesNumberAndYear) {
  EXPECT_THAT(numbered("view-notam-list-for-spfib-rqs", standing),
              HasSubstr("<naips:notam><naips:notamKey>C1042/24-YSSY</naips:notamKey><naips:notamId>"
                        "<naips:loc><naips:id>YSSY</naips:id></naips:loc><naips:number>"
                        "<naips:series-id>C</naips:series-id><naips:number>1042</naips:number>"
                        "<naips:year>24</naips:year></naips:number></naips:notamId>"
                        "<naips:summary>RWY 07/25 NOT AVBL DUE WIP</naips:summary></naips:notam>"));
}

TEST_F(Bulletins, HaveNotamsWhoseTextsAreHeld) {
  const std::vector<std::string> keys =
      texts(numbered("view-notam-list-for-spfib-rqs", standing), "notamKey");
  std::string children;
  for (const std::string& key : keys) {
    children += element("notamKey", key);
  }
  const std::string content =
      simtest::text(brief("retrieve-full-text-notam-rqs", children), "content");
  EXPECT_THAT(content, HasSubstr("C1042/24 NOTAMN\nA) YSSY\n"));
  std::size_t notams = 0;
  for (std::size_t at = content.find("\nE) "); at != std::string::npos;
       at = content.find("\nE) ", at + 1)) {
    ++notams;
  }
  EXPECT_EQ(notams, keys.size());
}

TEST_F(Bulletins, RefuseUnknownNotams) {
  EXPECT_THAT(brief("retrieve-full-text-notam-rqs", element("notamKey", "X1/24-YSSY")),
              HasSubstr("<naips:info>Unknown NOTAM: X1/24-YSSY</naips:info>"));
  EXPECT_THAT(brief("retrieve-full-text-notam-rqs", ""),
              HasSubstr("<naips:info>No NOTAM was asked for</naips:info>"));
}

TEST_F(Bulletins, AreUnknownByAnyOtherNumber) {
  for (const char* name : {"get-spfib-rqs", "view-notam-list-for-spfib-rqs"}) {
    EXPECT_THAT(numbered(name, "77"),
                HasSubstr("<naips:info>No bulletin 77 is held for you</naips:info>"));
  }
  EXPECT_THAT(brief("update-spfib-rqs", element("number") + element("stage", "", "include='true'")),
              HasSubstr("<naips:info>No bulletin  is held for you</naips:info>"));
}

TEST_F(Bulletins, BelongToTheirAccountAndItsGroups) {
  options.accounts.push_back(sim::accountFromText("other:pw"));
  ask(bulletin());
  const auto get = [&](const std::string& number) {
    return answer("/naips/briefing-service",
                  "<ndd:get-spfib-rqs source='x' requestor='OTHER' password='pw'>" +
                      element("number", number) + "</ndd:get-spfib-rqs>");
  };
  EXPECT_THAT(get(first), HasSubstr("status=\"FAILURE\""));
  EXPECT_THAT(get(standing), HasSubstr("status=\"SUCCESS\""));
}

TEST_F(Bulletins, AreMadeForUnknownPlacesToo) {
  const std::string text = ask(bulletinWith({element("ades", loc("QQQQ"))}));
  EXPECT_THAT(text, AllOf(HasSubstr("SUCCESS"), HasSubstr("QQQQ\n  NO INFORMATION HELD\n")));
}

TEST_F(Bulletins, TakeTheDurationsOfTheirOwnFormOnly) {
  const std::string spec = element("spfib", joined(bulletin()));
  for (const char* bad : {"PT0H", "6", "PT48H", "PT006H"}) {
    EXPECT_THAT(brief("spfib-rqs", element("duration", bad) + spec),
                HasSubstr("Element 'duration': [facet 'pattern']"));
  }
  const std::string tail = element("number", standing) + element("stage", "", "include='true'");
  for (const char* bad : {"PT6H", "31", "0", "06"}) {
    EXPECT_THAT(brief("update-spfib-rqs", element("duration", bad) + tail),
                HasSubstr("Element 'duration': [facet 'pattern']"));
  }
  EXPECT_THAT(
      brief("update-spfib-rqs", element("duration", "PT06H") + element("duration", "12") + tail),
      HasSubstr("SUCCESS"));
}

}  // namespace
}  // namespace simtest
