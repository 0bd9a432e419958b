#include "tests/system/exchange.h"
#include "tests/system/simulator.h"

#include <ktpnaips/briefing/notams.h>

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

using namespace ktpnaips;
using simulator::holds;
using simulator::lastRequest;
using simulator::refused;
using simulator::requestOf;
using simulator::succeeded;

namespace {

class NotamExchange : public simulator::Exchange {};

INSTANTIATE_TEST_SUITE_P(Schemes, NotamExchange, testing::Bool(), simulator::schemeName);

struct Listed {
  const wchar_t* key;
  const wchar_t* id;
  const wchar_t* location;
  const wchar_t* summary;
};

/// Of the bulletin from YSSY to YMML that the service holds from its start, with the alternate
/// YMAV and the additional location YSCB: those places first, then the region.
constexpr std::array listedNotams{
    Listed{L"C1042/24-YSSY", L"C1042/24", L"YSSY", L"RWY 07/25 NOT AVBL DUE WIP"},
    Listed{L"C1049/24-YSSY", L"C1049/24", L"YSSY", L"TWY B3 CLSD"},
    Listed{L"C1056/24-YSSY", L"C1056/24", L"YSSY", L"OBST CRANE 312FT AMSL"},
    Listed{L"C1077/24-YMML", L"C1077/24", L"YMML", L"RWY 09/27 ILS NOT AVBL"},
    Listed{L"C1084/24-YMML", L"C1084/24", L"YMML", L"TWY T CLSD"},
    Listed{L"C1105/24-YMAV", L"C1105/24", L"YMAV", L"FUEL AVGAS NOT AVBL"},
    Listed{L"C1238/24-YSCB", L"C1238/24", L"YSCB", L"RWY 12/30 GUSTS"},
    Listed{L"F1322/24-YMMM", L"F1322/24", L"YMMM", L"R421A ACT (AIR TRAINING)"},
    Listed{L"F1329/24-YMMM", L"F1329/24", L"YMMM", L"RNAV ROUTE Q29 RESTRICTED"},
    Listed{L"F1336/24-YMMM", L"F1336/24", L"YMMM", L"PJE NEAR BARWON HEADS"},
    Listed{L"F1343/24-YMMM", L"F1343/24", L"YMMM", L"GPS RAIM OUTAGES"},
    Listed{L"F1350/24-YMMM", L"F1350/24", L"YMMM", L"TRIGGER NOTAM AIP SUP"},
};

std::shared_ptr<ViewNOTAMListForSPFIBRsp> notamsOf(const std::wstring& bulletin) {
  ViewNOTAMListForSPFIBRqs request;
  request.SPFIBNo(bulletin);
  return request.submit();
}

TEST_P(NotamExchange, ListsTheNotamsOfABulletin) {
  const auto list = notamsOf(L"1001");
  ASSERT_TRUE(succeeded(list));
  EXPECT_EQ(lastRequest(), requestOf("view-notam-list-for-spfib-rqs", "<number>1001</number>"));
  EXPECT_EQ(list->SPFIBNumber(), L"1001");
  ASSERT_EQ(list->Count(), 12);
  auto expected = listedNotams.begin();
  for (const auto& notam : *list) {
    EXPECT_EQ(notam->NotamKey(), expected->key);
    EXPECT_EQ(notam->NotamId(), expected->id);
    EXPECT_EQ(notam->Location(), expected->location);
    EXPECT_EQ(notam->Summary(), expected->summary);
    ++expected;
  }
  EXPECT_EQ(list->Item(0), nullptr);
  EXPECT_EQ(list->Item(13), nullptr);
}

TEST_P(NotamExchange, FetchesTheFullTextOfNotamsByTheirKeys) {
  RetrieveFullTextNotamRqs request;
  request.addKey(L" c1042/24-yssy ");
  request.addKey(L"  ");
  request.addKey(L"C1315/24-YBSU");
  EXPECT_EQ(request.Count(), 2);
  const auto texts = request.submit();
  ASSERT_TRUE(succeeded(texts));
  EXPECT_EQ(lastRequest(), requestOf("retrieve-full-text-notam-rqs",
                                     "<notamKey>C1042/24-YSSY</notamKey>"
                                     "<notamKey>C1315/24-YBSU</notamKey>"));
  EXPECT_EQ(texts->Content(),
            L"C1042/24 NOTAMN\nA) YSSY\nB) FROM 24 10 271000\nC) TO 35 11 291600 EST\n"
            L"E) RWY 07/25 NOT AVBL DUE WIP\nBTN 1300 AND 1900 DAILY\n"
            L"\n"
            L"C1315/24 NOTAMN\nA) YBSU\nB) FROM 24 10 271900\nC) TO PERM\n"
            L"E) AMD ENRSUP AUSTRALIA (ERSA)\nRWY 13/31 AIMING POINT MARKINGS ADDED\n");
  EXPECT_EQ(texts->Product(), L"");
  EXPECT_EQ(texts->Count(), 0);
}

TEST_P(NotamExchange, FetchesTheFullTextOfEveryNotamThatIsListed) {
  const auto list = notamsOf(L"1001");
  ASSERT_TRUE(succeeded(list));
  RetrieveFullTextNotamRqs request;
  for (const auto& notam : *list) request.addKey(notam->NotamKey());
  EXPECT_EQ(request.Count(), list->Count());
  const auto texts = request.submit();
  ASSERT_TRUE(succeeded(texts));
  for (const auto& notam : *list) {
    EXPECT_TRUE(
        holds(texts->Content(), notam->NotamId() + L" NOTAMN\nA) " + notam->Location() + L"\n"));
  }
}

TEST_P(NotamExchange, IsRefusedTheListOfABulletinThatIsNotHeld) {
  const auto unknown = notamsOf(L"999");
  EXPECT_TRUE(refused(unknown, L"No bulletin 999 is held for you"));
  EXPECT_EQ(unknown->SPFIBNumber(), L"");
  EXPECT_EQ(unknown->Count(), 0);
  EXPECT_TRUE(refused(notamsOf(L""), L"No bulletin  is held for you"));
  EXPECT_EQ(lastRequest(), requestOf("view-notam-list-for-spfib-rqs", "<number/>"));
}

TEST_P(NotamExchange, IsRefusedTheTextOfNoneAndOfAnUnknownNotam) {
  RetrieveFullTextNotamRqs request;
  EXPECT_TRUE(refused(request.submit(), L"No NOTAM was asked for"));
  request.addKey(L"C1042/24-YSSY");
  request.addKey(L"C9999/24-YSSY");
  const auto texts = request.submit();
  EXPECT_TRUE(refused(texts, L"Unknown NOTAM: C9999/24-YSSY"));
  EXPECT_EQ(texts->Content(), L"");
}

}  // namespace
