#include <gmock/gmock.h>

#include <string>

#include "tests/simulator/answers.h"
#include "tests/simulator/requests.h"
#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::AllOf;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class Briefed : public ServiceTest {
 protected:
  std::string brief(std::string_view name, std::string_view children) {
    return answer("/naips/briefing-service", request(name, children));
  }
};

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) {
    all += text;
  }
  return all;
}

class Light : public Briefed {
 protected:
  std::string at(const std::string& point) {
    return brief("fl-ll-rqs", element("date", "2026-11-20") + element("point", point));
  }
};

TEST_F(Light, IsToldInUtcForTheDateAndPlace) {
  const std::string answer = at(loc("YSSY"));
  EXPECT_EQ(text(answer, "date"), "2026-11-20");
  EXPECT_THAT(text(answer, "first"), StartsWith("2026-11-19T18:"));
  EXPECT_THAT(text(answer, "last"), StartsWith("2026-11-20T09:"));
}

TEST_F(Light, DiffersLittleBetweenAPlaceAndItsCoordinates) {
  const std::string coord =
      element("coord", element("lat", "-33.946111") + element("long", "151.177222"));
  EXPECT_THAT(text(at(coord), "first"), StartsWith(text(at(loc("YSSY")), "first").substr(0, 15)));
}

TEST_F(Light, IsEarlierToTheEast) {
  const std::string east =
      element("bear-dist", element("loc", "SY") + element("bear", "77") + element("dist", "120"));
  EXPECT_LT(text(at(east), "first"), text(at(loc("SY")), "first"));
}

TEST_F(Light, IsLeftOutWhereTheSunStaysUp) {
  const std::string coord =
      element("coord", element("lat", "-80.000000") + element("long", ".000000"));
  const std::string answer = at(coord);
  EXPECT_THAT(answer, AllOf(HasSubstr("SUCCESS"), Not(HasSubstr("<naips:first>"))));
}

TEST_F(Light, IsRefusedWithoutAKnownPoint) {
  EXPECT_THAT(at(""), HasSubstr("<naips:info>A place is missing</naips:info>"));
  EXPECT_THAT(at(loc("QQQQ")), HasSubstr("<naips:info>Unknown place: QQQQ</naips:info>"));
}

TEST_F(Light, TakesNumbersInTheirFormOnly) {
  const auto coord = [&](const char* lat, const char* lon) {
    return at(element("coord", element("lat", lat) + element("long", lon)));
  };
  for (const char* lat : {"0.500000", "-33.9", "90.000001", "-91.000000", "+1.000000", ""}) {
    EXPECT_THAT(coord(lat, "151.200000"), HasSubstr("Element 'lat': "));
  }
  EXPECT_THAT(coord("90.000000", "180.000000"), Not(HasSubstr("soap:Fault")));
  EXPECT_THAT(coord("-.500000", "-180.000000"), Not(HasSubstr("soap:Fault")));
  EXPECT_THAT(coord(".500000", "180.000001"), HasSubstr("Element 'long': "));
  const auto bearing = [&](const char* bear, const char* dist) {
    return at(
        element("bear-dist", element("loc", "SY") + element("bear", bear) + element("dist", dist)));
  };
  for (const char* bear : {"045", "360", "-1"}) {
    EXPECT_THAT(bearing(bear, "025"), HasSubstr("Element 'bear': "));
  }
  for (const char* dist : {"25", "000", "1000"}) {
    EXPECT_THAT(bearing("45", dist), HasSubstr("Element 'dist': "));
  }
  EXPECT_THAT(brief("fl-ll-rqs", element("date", "2026-11-31") + element("point")),
              HasSubstr("Element 'date': "));
}

class Raim : public Briefed {};

TEST_F(Raim, TellsEveryLocation) {
  const std::string content =
      text(brief("raim-rqs", element("loc", "YSSY") + element("loc", "YMML")), "content");
  EXPECT_THAT(content, StartsWith("GPS RAIM PREDICTION 200600\n\nYSSY\nTSO-C129 (AND EQUIVALENT)\n"
                                  "FAULT DETECTION\n"));
  EXPECT_THAT(content, HasSubstr("\nYMML\n"));
  EXPECT_THAT(content, ContainsRegex("GPS RAIM FDE? (UNAVBL|OUTAGES) FOR NPA\n"));
}

TEST_F(Raim, TakesTwentyLocationsAndNoMore) {
  EXPECT_THAT(brief("raim-rqs", repeated(element("loc", "YSSY"), 20)), HasSubstr("SUCCESS"));
  EXPECT_THAT(brief("raim-rqs", repeated(element("loc", "YSSY"), 21)),
              HasSubstr("Element 'loc': This element is not expected."));
}

TEST_F(Raim, RefusesUnknownLocationsAndNone) {
  EXPECT_THAT(brief("raim-rqs", element("loc", "QQQQ")),
              HasSubstr("<naips:info>Unknown location: QQQQ</naips:info>"));
  EXPECT_THAT(brief("raim-rqs", ""),
              HasSubstr("<naips:info>No location was asked for</naips:info>"));
}

class Winds : public Briefed {
 protected:
  std::string along(const std::string& adep, const std::string& ades, const std::string& route,
                    const std::string& tas = "N0450") {
    return brief("wind-temp-profile-rqs",
                 element("stage", element("adep", adep) + element("ades", ades) +
                                      element("etd", "2026-11-20T22:00:00Z") + route) +
                     element("tas", tas));
  }
};

TEST_F(Winds, AreToldAtEveryFixAndLevel) {
  const std::string content =
      text(along("YSSY", "YMML", element("route", "DCT WOL DCT")), "content");
  EXPECT_THAT(content, HasSubstr("YSSY TO YMML  ETD 2026-11-20T22:00:00Z  TAS N0450\n"));
  EXPECT_THAT(content, ContainsRegex("UTC +A020 +A050 +FL100 +FL140"));
  EXPECT_THAT(content, ContainsRegex("  YSSY +202200( +[0-3][0-9]0[0-9]+ M?[0-9][0-9])+\n"));
  EXPECT_THAT(content, HasSubstr("\n  WOL "));
  EXPECT_THAT(content, ContainsRegex("\n  YMML +202[23][0-9][0-9] "));
}

TEST_F(Winds, ComeLaterForASlowerAircraft) {
  EXPECT_THAT(along("YSSY", "YMML", "", "N0100"), ContainsRegex("\n  YMML +2101"));
}

TEST_F(Winds, HaveNoRowsForUnknownPlacesAndNoTableWithoutStages) {
  EXPECT_THAT(along("YSSY", "QQQQ", ""), AllOf(HasSubstr("SUCCESS"), Not(HasSubstr("\n  QQQQ"))));
  EXPECT_THAT(brief("wind-temp-profile-rqs", element("tas")), HasSubstr("END OF BRIEFING"));
}

TEST_F(Winds, TakeTenStagesAndNoMore) {
  const std::string stage = element("stage", element("adep", "YSSY") + element("ades", "YSCB") +
                                                 element("etd", "2026-11-20T22:00:00Z"));
  const std::string tas = element("tas", "N0100");
  EXPECT_THAT(brief("wind-temp-profile-rqs", repeated(stage, 10) + tas), HasSubstr("SUCCESS"));
  EXPECT_THAT(brief("wind-temp-profile-rqs", repeated(stage, 11) + tas),
              HasSubstr("Element 'stage': This element is not expected. Expected is ( tas )."));
}

class GeneralMet : public Briefed {
 protected:
  std::string get(const std::string& name, const std::string& type) {
    return brief("general-met-brief-rqs", element("name", name) + element("type", type));
  }
};

TEST_F(GeneralMet, MessagesAreListedAndEachIsHeld) {
  const std::string list = brief("general-met-dir-rqs", "");
  const std::vector<std::string> names = texts(list, "name");
  const std::vector<std::string> types = texts(list, "type");
  ASSERT_EQ(names.size(), types.size());
  EXPECT_GT(names.size(), 5U);
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_THAT(get(names[i], types[i]), HasSubstr("<naips:content>")) << names[i];
  }
}

TEST_F(GeneralMet, MessagesAreRefusedByAnUnknownName) {
  EXPECT_THAT(get("NOTHING", "VAA"),
              HasSubstr("<naips:info>Unknown message: NOTHING (VAA)</naips:info>"));
  EXPECT_THAT(get("", ""), HasSubstr("status=\"FAILURE\""));
}

}  // namespace
}  // namespace simtest
