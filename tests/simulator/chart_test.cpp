#include <gmock/gmock.h>

#include <string>

#include "tests/simulator/answers.h"
#include "tests/simulator/requests.h"
#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::StartsWith;

class Charts : public ServiceTest {
 protected:
  std::string get(const std::string& key, const std::string& variant = "") {
    return answer("/naips/met-service", request("get-chart-rqs", element("key", key) + variant));
  }
};

// The width that a PNG file declares.
unsigned widthOf(const std::string& png) {
  unsigned width = 0;
  for (const char c : png.substr(16, 4)) {
    width = width * 256 + static_cast<unsigned char>(c);
  }
  return width;
}

TEST_F(Charts, AreListedWithKeyNameTimeTypeAndResolutions) {
  const std::string text = answer("/naips/met-service", request("chart-dir-rqs", ""));
  EXPECT_THAT(text, HasSubstr("<naips:chart key=\"80001\"><naips:name>MSLP ANALYSIS</naips:name>"
                              "<naips:store-time>2026-11-20T06:00:00Z</naips:store-time>"
                              "<naips:type>MSLP</naips:type><naips:variant>LO</naips:variant>"
                              "<naips:variant>HI</naips:variant></naips:chart>"));
  EXPECT_THAT(texts(text, "type"), IsSupersetOf({"MSLP", "SIGWX", "GPWT"}));
}

TEST_F(Charts, ComeInBothResolutionsUnlessOneIsChosen) {
  const std::string text = get("80001");
  EXPECT_THAT(text, HasSubstr("<naips:desc key=\"80001\"><naips:name>MSLP ANALYSIS</naips:name>"));
  EXPECT_THAT(texts(text, "product-res"), ElementsAre("LO", "HI"));
  EXPECT_THAT(text, HasSubstr("<naips:content type=\"PNG\" res=\"LO\"><naips:content>iVBORw0KGgo"));
  const std::vector<std::string> files = texts(text, "content");
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(widthOf(decodeBase64(files[0])), 800U);
  EXPECT_EQ(widthOf(decodeBase64(files[1])), 1600U);
}

TEST_F(Charts, ComeInTheChosenResolution) {
  const std::string text = get("80001", element("variant", " hi "));
  EXPECT_THAT(text, HasSubstr("type=\"PNG\" res=\"HI\""));
  EXPECT_THAT(text, Not(HasSubstr("res=\"LO\"")));
  EXPECT_THAT(texts(text, "product-res"), ElementsAre("LO", "HI"));
  EXPECT_EQ(texts(get("80001", element("variant", "  ")), "content").size(), 2U);
}

TEST_F(Charts, AreRefusedInAResolutionThatIsNotHeld) {
  EXPECT_THAT(get("80013", element("variant", "LO")),
              HasSubstr("<naips:info>Chart 80013 is not held in the resolution LO</naips:info>"));
  EXPECT_THAT(get("80001", element("variant", "MED")),
              HasSubstr("Element 'variant': [facet 'pattern']"));
}

TEST_F(Charts, AreRefusedByAnUnknownKey) {
  EXPECT_THAT(get("1"), HasSubstr("<naips:info>Unknown chart: 1</naips:info>"));
  EXPECT_THAT(get(""), HasSubstr("status=\"FAILURE\""));
}

TEST_F(Charts, IncludeOneForPrintAsPdf) {
  const std::string text = get("80013");
  EXPECT_THAT(text, HasSubstr("<naips:content type=\"PDF\" res=\"HI\">"));
  const std::vector<std::string> files = texts(text, "content");
  ASSERT_EQ(files.size(), 1U);
  EXPECT_THAT(decodeBase64(files[0]), StartsWith("%PDF-"));
}

TEST_F(Charts, OfTheDirectoryCanAllBeFetched) {
  const std::string list = answer("/naips/met-service", request("chart-dir-rqs", ""));
  const std::string begin = "key=\"";
  for (std::size_t at = list.find(begin); at != std::string::npos; at = list.find(begin, at + 1)) {
    const std::string key = list.substr(at + begin.size(), 5);
    EXPECT_THAT(get(key), HasSubstr("status=\"SUCCESS\"")) << key;
  }
}

}  // namespace
}  // namespace simtest
