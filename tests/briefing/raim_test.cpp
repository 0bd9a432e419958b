#include <ktpnaips/briefing/raim.h>
#include <ktpnaips/core/request_document.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

class Raim : public testing::Test {
 protected:
  static std::string document(const std::string& content) {
    return test::requestWith("raim-rqs", content);
  }

  RAIMRqs request;

 private:
  test::FreshSettings settings_;
};

TEST_F(Raim, HasNoLocationsAtFirst) {
  EXPECT_EQ(request.abstractReq().ElementName(), L"raim-rqs");
  EXPECT_EQ(requestDocument(request), document(""));
}

TEST_F(Raim, WritesItsLocationsCleanedInTheOrderAdded) {
  request.addLocation(L" yssy ");
  request.addLocation(L"");
  request.addLocation(L"   ");
  request.addLocation(L"a  b");
  request.addLocation(L"yssy");
  EXPECT_EQ(requestDocument(request),
            document("<ndd:loc>YSSY</ndd:loc><ndd:loc>A  B</ndd:loc><ndd:loc>YSSY</ndd:loc>"));
}

TEST_F(Raim, TakesUpToTwentyLocations) {
  std::string expected;
  for (int number = 1; number <= 21; ++number) {
    request.addLocation(L"y" + std::to_wstring(number));
    if (number <= 20) expected += "<ndd:loc>Y" + std::to_string(number) + "</ndd:loc>";
  }
  EXPECT_EQ(requestDocument(request), document(expected));
}

TEST_F(Raim, HasAHandlerInSubmitOnly) {
  request.addLocation(L"yssy");
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"RAIMRequest")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

}  // namespace
}  // namespace ktpnaips
