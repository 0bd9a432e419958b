#include "simulator/data/weather.h"

#include <gtest/gtest.h>

#include <regex>

namespace {

using namespace std::chrono;

constexpr sim::TimePoint start = sys_days{2026y / March / 3} + 7h;

// Several seasons, hours and situations.
template <typename Check>
void everywhere(Check&& check) {
  for (const sim::Location& location : sim::locations()) {
    if (location.kind == 'A') {
      for (int step = 0; step < 12; ++step) {
        check(location, start + hours{step * 31 * 24 + step * 5});
      }
    }
  }
}

const std::string wind = "(00000|(0[1-9]|[12]\\d|3[0-6])0\\d\\d)(G\\d\\d)?KT";
const std::string sky = "(CAVOK|\\d{4}( (SHRA|TSRA))?( NSC|( (FEW|SCT|BKN|OVC)\\d{3}(CB)?)+)?)";
TEST(Weather, TafsFollowTheGrammar) {
  const std::regex grammar("TAF Y[A-Z]{3} \\d{6}Z \\d{4}/\\d{4}\n" + wind + ' ' + sky +
                           "\n(FM\\d{6} " + wind + ' ' + sky +
                           "\n)+((TEMPO|PROB30 INTER) \\d{4}/\\d{4} " + sky +
                           "\n)?RMK\nT( M?\\d\\d){4} Q( \\d{3,4}){4}\n");
  everywhere([&](const sim::Location& location, sim::TimePoint time) {
    const std::string text = sim::taf(location, time, time + hours{12});
    EXPECT_TRUE(std::regex_match(text, grammar)) << text;
  });
}

TEST(Weather, TafsAreValidForADayOrThirtyHours) {
  const sim::Location& sydney = *sim::findLocation("YSSY");
  EXPECT_NE(sim::taf(sydney, start, start + hours{6}).find(" 0306/0406\n"), std::string::npos);
  EXPECT_NE(sim::taf(sydney, start, start + hours{24}).find(" 0306/0412\n"), std::string::npos);
  EXPECT_NE(sim::taf(sydney, start - hours{6}, start).find(" 0300/0324\n"), std::string::npos);
}

TEST(Weather, ReportsFollowTheGrammar) {
  const std::string body = "Y[A-Z]{3} \\d{6}Z " + wind + ' ' + sky +
                           " M?\\d\\d/M?\\d\\d Q\\d{3,4} RMK RF\\d\\d\\.\\d/\\d{3}\\.\\d\n";
  const std::regex metar("METAR " + body);
  const std::regex speci("SPECI " + body);
  const std::regex ttf("TTF METAR " + body + "(NOSIG|FM\\d{4} " + wind + ' ' + sky + ")\n");
  everywhere([&](const sim::Location& location, sim::TimePoint time) {
    EXPECT_TRUE(std::regex_match(sim::metar(location, time), metar)) << sim::metar(location, time);
    EXPECT_TRUE(std::regex_match(sim::speci(location, time), speci)) << sim::speci(location, time);
    EXPECT_TRUE(std::regex_match(sim::ttf(location, time), ttf)) << sim::ttf(location, time);
  });
}

TEST(Weather, AtisNamesRunwayWindAndQnh) {
  const std::regex grammar(
      "ATIS Y[A-Z]{3} [A-Z] \\d{6}\nAPCH: EXP [A-Z]+ APCH\nRWY: [0-9A-Z ]+\nOPR INFO: .+\n"
      "WIND: (CALM|\\d{3}/\\d+( MAX \\d+)?)\n(CAVOK|VIS: .+\n(CLD|WX): .+)\nTMP: -?\\d+\n"
      "QNH: \\d{3,4}\n");
  everywhere([&](const sim::Location& location, sim::TimePoint time) {
    EXPECT_TRUE(std::regex_match(sim::atis(location, time), grammar)) << sim::atis(location, time);
  });
}

TEST(Weather, WarningsFollowTheGrammar) {
  const std::regex grammar(
      "Y(MMM|BBB) (SIGMET|AIRMET) [A-Z]\\d\\d VALID \\d{6}/\\d{6} Y(M|B)RF-\nY(MMM|BBB) [A-Z]+ FIR "
      "[A-Z ]+ FCST WI (S\\d{4} E\\d{5}( - )?){4} .+ MOV E \\d+KT (NC|WKN)=\n");
  for (const char* fir : {"YMMM", "YBBB"}) {
    for (int hour = 0; hour < 48; ++hour) {
      const auto time = start + hours{hour};
      EXPECT_TRUE(std::regex_match(sim::sigmet(fir, time), grammar)) << sim::sigmet(fir, time);
      EXPECT_TRUE(std::regex_match(sim::airmet(fir, time), grammar)) << sim::airmet(fir, time);
    }
  }
}

TEST(Weather, AreasHaveQnhAndForecast) {
  for (const sim::ForecastArea& area : sim::areas()) {
    EXPECT_TRUE(
        std::regex_match(sim::aqnh(area, start, start + hours{6}),
                         std::regex("(AREA QNH \\d{6}/\\d{6}\nAREA [A-Z0-9-]+: \\d{3,4}\n)+")));
    const std::string text = sim::areaForecast(area, start, start + hours{12});
    EXPECT_EQ(text.rfind("AREA FORECAST 030600/031800 AREA " + std::string(area.code), 0), 0U);
    EXPECT_NE(text.find("FREEZING LEVEL: "), std::string::npos);
  }
}

TEST(Weather, IsTheSameForTheSamePlaceAndHour) {
  const sim::Location& perth = *sim::findLocation("YPPH");
  const std::string text = sim::metar(perth, start);
  EXPECT_EQ(text, sim::metar(perth, start));
  EXPECT_NE(text, sim::metar(perth, start + hours{1}));
}

TEST(Weather, IsEmptyWhereThereIsNoAerodrome) {
  const sim::Location& point = *sim::findLocation("RIVET");
  EXPECT_EQ(sim::taf(point, start, start), "");
  EXPECT_EQ(sim::metar(point, start), "");
  EXPECT_EQ(sim::atis(point, start), "");
}

TEST(Weather, WindsAloftStayInBounds) {
  for (double latitude = -60; latitude <= 10; latitude += 5) {
    for (double longitude = 80; longitude <= 190; longitude += 10) {
      for (const int level : {0, 50, 185, 390, 600}) {
        const sim::Wind w = sim::windAt(latitude, longitude, level, start);
        EXPECT_TRUE(w.direction >= 10 && w.direction <= 360 && w.direction % 10 == 0);
        EXPECT_TRUE(w.speedKt >= 0 && w.speedKt < 220) << w.speedKt;
        EXPECT_TRUE(w.temperatureC >= -70 && w.temperatureC <= 40) << w.temperatureC;
      }
    }
  }
  EXPECT_GT(sim::windAt(-31, 140, 390, start).speedKt, 60);
  EXPECT_LT(sim::windAt(-31, 140, 390, start).temperatureC, -45);
}

}  // namespace
