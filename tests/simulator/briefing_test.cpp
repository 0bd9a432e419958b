#include <gmock/gmock.h>
#include <openssl/evp.h>

#include <string>
#include <vector>

#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr std::string_view period =
    "<ndd:period><ndd:from>2026-11-21T00:00:00Z</ndd:from>"
    "<ndd:till>2026-11-21T09:00:00Z</ndd:till></ndd:period>";

class Briefing : public ServiceTest {
 protected:
  std::string brief(std::string_view name, std::string_view children) {
    return answer("/naips/briefing-service", request(name, children));
  }
};

struct Product {
  std::string type;
  std::string base64;
};

std::vector<Product> productsOf(std::string_view answer) {
  constexpr std::string_view begin = "<naips:product type=\"";
  constexpr std::string_view content = "\"><naips:content>";
  std::vector<Product> products;
  for (std::size_t at = answer.find(begin); at != std::string_view::npos;
       at = answer.find(begin, at + 1)) {
    const std::size_t type = at + begin.size();
    const std::size_t mid = answer.find(content, type);
    const std::size_t text = mid + content.size();
    products.push_back({std::string(answer.substr(type, mid - type)),
                        std::string(answer.substr(text, answer.find('<', text) - text))});
  }
  return products;
}

std::vector<std::string> typesOf(std::string_view answer) {
  std::vector<std::string> types;
  for (const Product& product : productsOf(answer)) {
    types.push_back(product.type);
  }
  return types;
}

std::string locationFlags(std::string_view met, std::string_view ntm, std::string_view hon,
                          std::string_view sigmet) {
  std::string text = "<ndd:flags met=\"";
  text.append(met).append("\" ntm=\"").append(ntm).append("\" hon=\"").append(hon);
  return text.append("\" sigmet=\"").append(sigmet).append("\"/>");
}

std::string areaFlags(std::string_view given) {
  std::string text = "<ndd:flags ";
  for (const std::string_view name : {"met", "ntm", "hon", "charts", "mid-sigwx-gpwt"}) {
    const bool on = given.find(name) != std::string_view::npos;
    text.append(name).append(on ? "=\"true\" " : "=\"false\" ");
  }
  return text.append(given.find("HI") != std::string_view::npos ? "variant=\"HI\"/>"
                                                                : "variant=\"LO\"/>");
}

TEST_F(Briefing, OfLocationsTellsWeatherAndNotamsOfEach) {
  const std::string text =
      brief("loc-brief-rqs", "<ndd:loc>YSSY</ndd:loc><ndd:loc>ymml</ndd:loc>" +
                                 locationFlags("true", "true", "true", "true"));
  EXPECT_THAT(text, HasSubstr("<naips:loc-brief-rsp xmlns:naips=\"http://naips.example/naips/xsd\""
                              " status=\"SUCCESS\"><naips:content>LOCATION BRIEFING\n"));
  for (const char* part : {"\n  TAF YSSY ", "\n  METAR YSSY ", "\nNOTAM YSSY\n", "\n  TAF YMML ",
                           "\nSIGMET\n", "\nHEAD OFFICE NOTAM\n"}) {
    EXPECT_THAT(text, HasSubstr(part));
  }
}

TEST_F(Briefing, OfLocationsLeavesOutWhatWasNotAskedFor) {
  const std::string text =
      brief("loc-brief-rqs",
            "<ndd:loc>YSSY</ndd:loc>" + locationFlags("false", "false", "false", "false"));
  for (const char* part : {"TAF", "METAR", "NOTAM", "SIGMET"}) {
    EXPECT_THAT(text, Not(HasSubstr(part)));
  }
}

TEST_F(Briefing, OfLocationsBringsAChartInLinesOf76Characters) {
  const std::vector<Product> products = productsOf(brief(
      "loc-brief-rqs", "<ndd:loc>YSSY</ndd:loc>" + locationFlags("true", "true", "true", "true")));
  ASSERT_EQ(products.size(), 1U);
  EXPECT_EQ(products[0].type, "PNG");
  const std::string& text = products[0].base64;
  EXPECT_THAT(text, StartsWith("iVBORw0KGgo"));
  EXPECT_EQ(text.find("\r\n"), 76U);
  EXPECT_EQ(text.find("\r\n", 78), 154U);
}

TEST_F(Briefing, CoversTheRequestedPeriod) {
  const std::string tail =
      "<ndd:loc>YSSY</ndd:loc>" + locationFlags("true", "true", "false", "false");
  EXPECT_THAT(brief("loc-brief-rqs", std::string(period) + tail),
              HasSubstr("VALID FROM 2026-11-21 0000 UTC TO 2026-11-21 0900 UTC\n"));
  EXPECT_THAT(brief("loc-brief-rqs", "<ndd:duration>PT06H</ndd:duration>" + tail),
              HasSubstr("VALID FROM 2026-11-20 0600 UTC TO 2026-11-20 1200 UTC\n"));
  EXPECT_THAT(brief("loc-brief-rqs", tail),
              HasSubstr("VALID FROM 2026-11-20 0600 UTC TO 2026-11-21 0600 UTC\n"));
}

TEST_F(Briefing, RefusesAPeriodThatEndsBeforeItBegins) {
  EXPECT_THAT(brief("met-brief-rqs",
                    "<ndd:period><ndd:from>2026-11-21T09:00:00Z</ndd:from>"
                    "<ndd:till>2026-11-21T00:00:00Z</ndd:till></ndd:period>"
                    "<ndd:loc>YSSY</ndd:loc><ndd:types/>"),
              HasSubstr("<naips:info>The briefing period ends before it begins</naips:info>"));
}

TEST_F(Briefing, RefusesAnUnknownPlaceByName) {
  EXPECT_THAT(brief("loc-brief-rqs", "<ndd:loc>YSSY</ndd:loc><ndd:loc>Q&lt;9</ndd:loc>" +
                                         locationFlags("true", "true", "true", "true")),
              HasSubstr("<naips:loc-brief-rsp xmlns:naips=\"http://naips.example/naips/xsd\""
                        " status=\"FAILURE\"><naips:info>Unknown location: Q&lt;9</naips:info>"
                        "</naips:loc-brief-rsp>"));
  EXPECT_THAT(brief("area-brief-rqs", "<ndd:area>XX</ndd:area>" + areaFlags("met")),
              HasSubstr("<naips:info>Unknown area: XX</naips:info>"));
}

TEST_F(Briefing, RefusesARequestForNoPlace) {
  EXPECT_THAT(brief("loc-brief-rqs", locationFlags("true", "true", "true", "true")),
              HasSubstr("<naips:info>No location was asked for</naips:info>"));
  EXPECT_THAT(brief("area-brief-rqs", areaFlags("met")),
              HasSubstr("<naips:info>No area was asked for</naips:info>"));
}

TEST_F(Briefing, OfAreasTellsForecastsAndNotams) {
  const std::string text =
      brief("area-brief-rqs", "<ndd:area>21</ndd:area>" + areaFlags("met ntm hon"));
  for (const char* part : {"AREA BRIEFING\n", "\nAREA FORECAST\n", "\nAREA QNH\n", "\n  TAF YSSY ",
                           "\nNOTAM YSSY\n", "\nHEAD OFFICE NOTAM\n", "\nSIGMET\n"}) {
    EXPECT_THAT(text, HasSubstr(part));
  }
  EXPECT_THAT(typesOf(text), ElementsAre());
}

TEST_F(Briefing, OfAreasBringsTwoChartsOneOfThemReportedAsGif) {
  const std::vector<Product> products =
      productsOf(brief("area-brief-rqs", "<ndd:area>21</ndd:area>" + areaFlags("charts")));
  ASSERT_EQ(products.size(), 2U);
  EXPECT_EQ(products[0].type, "PNG");
  EXPECT_EQ(products[1].type, "GIF");
  EXPECT_THAT(products[1].base64, StartsWith("iVBORw0KGgo"));
  EXPECT_NE(products[0].base64, products[1].base64);
}

TEST_F(Briefing, OfAreasBringsMidLevelAndWindChartsOnTop) {
  const std::string area = "<ndd:area>21</ndd:area>";
  EXPECT_THAT(typesOf(brief("area-brief-rqs", area + areaFlags("charts mid-sigwx-gpwt HI"))),
              ElementsAre("PNG", "GIF", "PNG", "PNG"));
  EXPECT_NE(brief("area-brief-rqs", area + areaFlags("charts HI")),
            brief("area-brief-rqs", area + areaFlags("charts")));
}

TEST_F(Briefing, OfMetMessagesTellsTheRequestedTypesInTheirOrder) {
  const std::string text =
      brief("met-brief-rqs",
            "<ndd:loc>YSSY</ndd:loc><ndd:types><ndd:message-type>METAR</ndd:message-type>"
            "<ndd:message-type>AQNH</ndd:message-type></ndd:types>");
  EXPECT_THAT(text, HasSubstr("\nMETAR\n  METAR YSSY "));
  EXPECT_LT(text.find("\nMETAR\n"), text.find("\nAQNH\n"));
  EXPECT_THAT(text, Not(HasSubstr("TAF")));
  EXPECT_THAT(typesOf(text), ElementsAre());
}

TEST_F(Briefing, OfMetMessagesKnowsAllEightTypes) {
  std::string types;
  for (const char* type : {"TAF", "TTF", "METAR", "SPECI", "AQNH", "SIGMET", "AIRMET", "ATIS"}) {
    types.append("<ndd:message-type>").append(type).append("</ndd:message-type>");
  }
  const std::string text =
      brief("met-brief-rqs", "<ndd:loc>YSSY</ndd:loc><ndd:types>" + types + "</ndd:types>");
  EXPECT_THAT(text, HasSubstr("status=\"SUCCESS\""));
  EXPECT_THAT(text, HasSubstr("\nATIS\n"));
}

TEST_F(Briefing, IsTheSameForTheSameTime) {
  const std::string children =
      "<ndd:loc>YBBN</ndd:loc>" + locationFlags("true", "true", "true", "true");
  const std::string first = brief("loc-brief-rqs", children);
  const sim::Service second(options);
  const std::string bytes =
      httpRequest("POST", "/naips/briefing-service", envelope(request("loc-brief-rqs", children)));
  EXPECT_EQ(roundTrip(second.port(), bytes).body(), first);
}

std::string repeated(std::string_view text, int times) {
  std::string result;
  for (int i = 0; i < times; ++i) {
    result.append(text);
  }
  return result;
}

TEST_F(Briefing, TakesAsManyPlacesAsItsLimitAndNoMore) {
  const std::string loc = "<ndd:loc>YSCB</ndd:loc>";
  const std::string area = "<ndd:area>21</ndd:area>";
  const std::string flags = locationFlags("false", "false", "false", "false");
  EXPECT_THAT(brief("loc-brief-rqs", repeated(loc, 12) + flags), HasSubstr("SUCCESS"));
  EXPECT_THAT(brief("loc-brief-rqs", repeated(loc, 13) + flags),
              HasSubstr("Element 'loc': This element is not expected. Expected is ( flags )."));
  EXPECT_THAT(brief("met-brief-rqs", repeated(loc, 4) + "<ndd:types/>"), HasSubstr("SUCCESS"));
  EXPECT_THAT(brief("met-brief-rqs", repeated(loc, 5) + "<ndd:types/>"),
              HasSubstr("Element 'loc': This element is not expected. Expected is ( types )."));
  EXPECT_THAT(brief("area-brief-rqs", repeated(area, 5) + areaFlags("")), HasSubstr("SUCCESS"));
  EXPECT_THAT(brief("area-brief-rqs", repeated(area, 6) + areaFlags("")),
              HasSubstr("Element 'area': This element is not expected. Expected is ( flags )."));
}

TEST_F(Briefing, FaultsOnSwappedElements) {
  const std::string flags = locationFlags("true", "true", "true", "true");
  EXPECT_THAT(brief("loc-brief-rqs", flags + "<ndd:loc>YSSY</ndd:loc>"),
              HasSubstr("Element 'loc': This element is not expected."));
  EXPECT_THAT(brief("loc-brief-rqs", "<ndd:loc>YSSY</ndd:loc>" + std::string(period) + flags),
              HasSubstr("Element 'period': This element is not expected."));
  EXPECT_THAT(brief("area-brief-rqs", areaFlags("met") + "<ndd:area>21</ndd:area>"),
              HasSubstr("Element 'area': This element is not expected."));
  EXPECT_THAT(brief("met-brief-rqs", "<ndd:types/><ndd:loc>YSSY</ndd:loc>"),
              HasSubstr("Element 'loc': This element is not expected."));
  EXPECT_THAT(brief("met-brief-rqs",
                    "<ndd:period><ndd:till>2026-11-21T09:00:00Z</ndd:till>"
                    "<ndd:from>2026-11-21T00:00:00Z</ndd:from></ndd:period><ndd:types/>"),
              HasSubstr("Element 'till': This element is not expected. Expected is ( from )."));
}

TEST_F(Briefing, FaultsOnMissingElements) {
  EXPECT_THAT(brief("loc-brief-rqs", "<ndd:loc>YSSY</ndd:loc>"),
              HasSubstr("Element 'loc-brief-rqs': Missing child element(s). Expected is one of "
                        "( loc, flags )."));
  EXPECT_THAT(brief("area-brief-rqs", "<ndd:area>21</ndd:area>"),
              HasSubstr("Element 'area-brief-rqs': Missing child element(s)."));
  EXPECT_THAT(brief("met-brief-rqs", "<ndd:loc>YSSY</ndd:loc>"),
              HasSubstr("Element 'met-brief-rqs': Missing child element(s)."));
  EXPECT_THAT(brief("met-brief-rqs",
                    "<ndd:period><ndd:from>2026-11-21T00:00:00Z</ndd:from></ndd:period>"
                    "<ndd:types/>"),
              HasSubstr("Element 'period': Missing child element(s). Expected is ( till )."));
}

TEST_F(Briefing, FaultsOnMissingOrUnknownFlags) {
  EXPECT_THAT(brief("loc-brief-rqs", "<ndd:flags met='true' ntm='true' hon='true'/>"),
              HasSubstr("Element 'flags': The attribute 'sigmet' is required but missing."));
  EXPECT_THAT(brief("area-brief-rqs",
                    "<ndd:flags met='true' ntm='true' hon='true' charts='true' variant='LO'/>"),
              HasSubstr("The attribute 'mid-sigwx-gpwt' is required but missing."));
  EXPECT_THAT(brief("loc-brief-rqs", locationFlags("TRUE", "true", "true", "true")),
              HasSubstr("Element 'flags', attribute 'met'"));
  EXPECT_THAT(
      brief("met-brief-rqs", "<ndd:types><ndd:message-type>PIREP</ndd:message-type></ndd:types>"),
      HasSubstr("The value 'PIREP' is not an element of the set"));
}

TEST_F(Briefing, FaultsOnPeriodAndDurationTogetherAndOnBadTimes) {
  const std::string tail = "<ndd:loc>YSSY</ndd:loc><ndd:types/>";
  EXPECT_THAT(
      brief("met-brief-rqs", std::string(period) + "<ndd:duration>PT06H</ndd:duration>" + tail),
      HasSubstr("Element 'duration': This element is not expected."));
  for (const char* duration : {"PT00H", "PT48H", "PT6H", "P1D", ""}) {
    EXPECT_THAT(
        brief("met-brief-rqs", "<ndd:duration>" + std::string(duration) + "</ndd:duration>" + tail),
        HasSubstr("Element 'duration': [facet 'pattern']"));
  }
  EXPECT_THAT(brief("met-brief-rqs",
                    "<ndd:period><ndd:from>2026-11-31T00:00:00Z</ndd:from>"
                    "<ndd:till>2026-12-01T00:00:00Z</ndd:till></ndd:period>" +
                        tail),
              HasSubstr("Element 'from': "));
}

}  // namespace
}  // namespace simtest
