#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/briefing/raim.h>

#include <gtest/gtest.h>

#include <string>

using namespace ktpnaips;
using simulator::holds;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

class RaimExchange : public simulator::Exchange {
 protected:
  RAIMRqs request;
};

INSTANTIATE_TEST_SUITE_P(Schemes, RaimExchange, testing::Bool(), simulator::schemeName);

TEST_P(RaimExchange, PredictsForEachLocationInItsOrder) {
  request.addLocation(L" ymml ");
  request.addLocation(L"YSSY");
  request.addLocation(L"  ");
  const auto prediction = request.submit();
  ASSERT_TRUE(succeeded(prediction));
  EXPECT_EQ(lastRequest(), requestOf("raim-rqs", "<loc>YMML</loc><loc>YSSY</loc>"));
  const std::wstring text = prediction->Content();
  EXPECT_EQ(text.find(L"GPS RAIM PREDICTION 200600\n\nYMML\nTSO-C129 (AND EQUIVALENT)\n"
                      L"FAULT DETECTION\n "),
            0U);
  EXPECT_TRUE(holds(text, L" FOR NPA\n\nYSSY\nTSO-C129 (AND EQUIVALENT)\nFAULT DETECTION\n "));
  EXPECT_TRUE(holds(text, L" FOR NPA\nTSO-C146A (AND EQUIVALENT)\nFAULT DETECTION\n "));
  EXPECT_TRUE(holds(text, L" FOR NPA\nFAULT DETECTION AND EXCLUSION\n "));
  EXPECT_EQ(prediction->Product(), L"");
  EXPECT_EQ(prediction->Count(), 0);
}

TEST_P(RaimExchange, AsksForTheFirstTwentyLocations) {
  std::string content;
  for (const std::wstring name :
       {L"YARM", L"YBHI", L"YBKE", L"YBNA", L"YBTH", L"YCBA", L"YCFS", L"YCNK", L"YCOM", L"YGFN",
        L"YGLB", L"YGTH", L"YLHI", L"YLIS", L"YMAY", L"YMDG", L"YMER", L"YMOR", L"YMRY", L"YNAR"}) {
    request.addLocation(name);
    content += "<loc>" + std::string(name.begin(), name.end()) + "</loc>";
  }
  request.addLocation(L"YNBR");
  const auto prediction = request.submit();
  ASSERT_TRUE(succeeded(prediction));
  EXPECT_EQ(lastRequest(), requestOf("raim-rqs", content));
  EXPECT_TRUE(holds(prediction->Content(), L"\nYNAR\n"));
  EXPECT_FALSE(holds(prediction->Content(), L"\nYNBR\n"));
}

TEST_P(RaimExchange, IsRefusedWithoutALocationAndForAnUnknownOne) {
  EXPECT_TRUE(refused(request.submit(), L"No location was asked for"));
  request.addLocation(L"YSSY");
  request.addLocation(L"QQQQ");
  const auto prediction = request.submit();
  EXPECT_TRUE(refused(prediction, L"Unknown location: QQQQ"));
  EXPECT_EQ(prediction->Content(), L"");
}

}  // namespace
