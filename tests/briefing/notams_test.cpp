#include <ktpnaips/briefing/notams.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/fault.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

TEST(NotamListRequest, CarriesTheNumberAsGivenEvenWhenEmpty) {
  const test::FreshSettings settings;
  ViewNOTAMListForSPFIBRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"view-notam-list-for-spfib-rqs");
  EXPECT_EQ(request.SPFIBNo(), L"");
  EXPECT_EQ(requestDocument(request),
            test::requestWith("view-notam-list-for-spfib-rqs", "<ndd:number/>"));
  request.SPFIBNo(L" a 4711 ");
  EXPECT_EQ(request.SPFIBNo(), L" a 4711 ");
  EXPECT_EQ(requestDocument(request), test::requestWith("view-notam-list-for-spfib-rqs",
                                                        "<ndd:number> a 4711 </ndd:number>"));
}

TEST(NotamListRequest, ReportsAFailingSubmitUnderAnotherName) {
  const test::FreshSettings settings;
  const ViewNOTAMListForSPFIBRqs request;
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"NotamListForSPFIBRequest")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

class NotamTextRequest : public testing::Test {
 protected:
  static std::string document(const std::string& content) {
    return test::requestWith("retrieve-full-text-notam-rqs", content);
  }

  RetrieveFullTextNotamRqs request;

 private:
  test::FreshSettings settings_;
};

TEST_F(NotamTextRequest, HasNoKeysAtFirst) {
  EXPECT_EQ(request.abstractReq().ElementName(), L"retrieve-full-text-notam-rqs");
  EXPECT_EQ(request.Count(), 0);
  EXPECT_EQ(requestDocument(request), document(""));
}

TEST_F(NotamTextRequest, WritesItsKeysCleanedInTheOrderAdded) {
  request.addKey(L" c1234/07  x ");
  request.addKey(L"");
  request.addKey(L"   ");
  request.addKey(L"b");
  request.addKey(L"b");
  EXPECT_EQ(request.Count(), 3);
  EXPECT_EQ(requestDocument(request),
            document("<ndd:notamKey>C1234/07  X</ndd:notamKey><ndd:notamKey>B</ndd:notamKey>"
                     "<ndd:notamKey>B</ndd:notamKey>"));
}

TEST_F(NotamTextRequest, HasNoLimitOfKeys) {
  for (int number = 1; number <= 32767; ++number) request.addKey(L"k");
  EXPECT_EQ(request.Count(), 32767);
  request.addKey(L"k");
  EXPECT_EQ(test::faultOf([&] { (void)request.Count(); }), fault::overflow);
}

TEST_F(NotamTextRequest, HasAHandlerInSubmitOnly) {
  request.addKey(L"k");
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"FullTextNotamRequest")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

TEST(Notam, IsEmptyAtFirstAndHoldsWhatIsSet) {
  NotamBaseDescriptor notam;
  for (auto* property : {&notam.NotamKey, &notam.NotamId, &notam.Location, &notam.Summary}) {
    EXPECT_EQ((*property)(), L"");
    (*property)(L" a  b ");
    EXPECT_EQ((*property)(), L" a  b ");
  }
}

std::string loc(const std::string& id) {
  return "<n:loc><n:id>" + id + "</n:id></n:loc>";
}

std::string number(const std::string& series, const std::string& serial, const std::string& year) {
  return "<n:number><n:series-id>" + series + "</n:series-id><n:number>" + serial +
         "</n:number><n:year>" + year + "</n:year></n:number>";
}

std::string notam(const std::string& id) {
  return "<n:notam><n:notamKey>k</n:notamKey><n:notamId>" + id +
         "</n:notamId><n:summary>s</n:summary></n:notam>";
}

TEST(NotamList, ReadsAsFailedAndEmptyUntilItIsLoaded) {
  const ViewNOTAMListForSPFIBRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.SPFIBNumber(), L"");
  EXPECT_EQ(response.Count(), 0);
}

TEST(NotamList, ReadsEveryFieldInTheOrderOfTheAnswer) {
  ViewNOTAMListForSPFIBRsp response;
  test::load(response, test::success("<n:notam><n:summary> rwy  closed </n:summary><n:notamId>" +
                                     number("C", "1234", "7") + loc(" YSSY ") +
                                     "</n:notamId><n:notamKey>k1</n:notamKey></n:notam>"
                                     "<n:spfib> 4711 </n:spfib>" +
                                     notam(loc("YMML") + number("D", "0007", "2024"))));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.SPFIBNumber(), L" 4711 ");
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->NotamKey(), L"k1");
  EXPECT_EQ(response.Item(1)->NotamId(), L"C1234/07");
  EXPECT_EQ(response.Item(1)->Location(), L" YSSY ");
  EXPECT_EQ(response.Item(1)->Summary(), L" rwy  closed ");
  EXPECT_EQ(response.Item(2)->NotamId(), L"D0007/2024");
  EXPECT_EQ(response.Item(0), nullptr);
  EXPECT_EQ(response.Item(3), nullptr);
}

TEST(NotamList, WritesYearsAsSmallIntegersOfTwoDigitsOrMore) {
  const auto idOf = [](const std::string& year) {
    ViewNOTAMListForSPFIBRsp response;
    test::load(response, test::success(notam(loc("Y") + number("C", "1", year))));
    return response.Item(1)->NotamId();
  };
  EXPECT_EQ(idOf("07"), L"C1/07");
  EXPECT_EQ(idOf("0"), L"C1/00");
  EXPECT_EQ(idOf("abc"), L"C1/00");
  EXPECT_EQ(idOf(""), L"C1/00");
  EXPECT_EQ(idOf("26a"), L"C1/26");
  EXPECT_EQ(idOf("7.5"), L"C1/08");
  EXPECT_EQ(idOf("6.5"), L"C1/06");
  EXPECT_EQ(idOf("-7"), L"C1/-07");
  EXPECT_EQ(idOf("32767"), L"C1/32767");
}

TEST(NotamList, LeavesMissingFieldsEmpty) {
  const test::FailureRecorder recorder;
  ViewNOTAMListForSPFIBRsp response;
  test::load(response, test::success("<n:notam><n:notamKey>k</n:notamKey></n:notam><n:notam/>"));
  EXPECT_EQ(response.SPFIBNumber(), L"");
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->NotamKey(), L"k");
  EXPECT_EQ(response.Item(1)->NotamId(), L"");
  EXPECT_EQ(response.Item(1)->Location(), L"");
  EXPECT_EQ(response.Item(1)->Summary(), L"");
  EXPECT_EQ(response.Item(2)->NotamKey(), L"");
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

/// Checks how far a NOTAM is read whose identification is `id`, which lacks a piece, and that its
/// follower is not.
void expectEndAt(
    const std::string& id, const wchar_t* location, const wchar_t* notamId,
    const std::wstring& fault = L"Error 91 (Object variable or With block variable not set)") {
  const test::FailureRecorder recorder;
  ViewNOTAMListForSPFIBRsp response;
  test::load(response, test::success("<n:spfib>4711</n:spfib>" + notam(id) +
                                     notam(loc("Y") + number("C", "1", "7"))));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.SPFIBNumber(), L"4711");
  ASSERT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1)->NotamKey(), L"k");
  EXPECT_EQ(response.Item(1)->Location(), location);
  EXPECT_EQ(response.Item(1)->NotamId(), notamId);
  EXPECT_EQ(response.Item(1)->Summary(), L"");
  EXPECT_EQ(
      recorder.reports(),
      test::Reports{fault + L" in procedure extractData of Class Module NotamListForSPFIBRsp"});
}

TEST(NotamList, EndsAtAMissingPieceOfAnIdentificationAndKeepsTheOnesBefore) {
  expectEndAt("", L"", L"");
  expectEndAt("<n:loc/>" + number("C", "1234", "7"), L"", L"");
  expectEndAt(loc("YSSY"), L"YSSY", L"");
  expectEndAt(loc("YSSY") + "<n:number><n:number>1234</n:number><n:year>7</n:year></n:number>",
              L"YSSY", L"");
  expectEndAt(loc("YSSY") + "<n:number><n:series-id>C</n:series-id><n:year>7</n:year></n:number>",
              L"YSSY", L"C");
  expectEndAt(
      loc("YSSY") + "<n:number><n:series-id>C</n:series-id><n:number>1234</n:number></n:number>",
      L"YSSY", L"C1234/");
}

TEST(NotamList, EndsAtAYearBeyondItsRange) {
  const std::string digits(400, '9');
  for (const char* year : {"32768", "-32769", "99999999999999999999", digits.c_str()}) {
    expectEndAt(loc("YSSY") + number("C", "1234", year), L"YSSY", L"C1234/", L"Error 6 (Overflow)");
  }
}

TEST(NotamList, ListsOnlyNotamsThatAreItsOwnChildren) {
  ViewNOTAMListForSPFIBRsp response;
  test::load(response, test::success("<n:more><n:spfib>4711</n:spfib><n:notam/></n:more><notam/>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.SPFIBNumber(), L"");
  EXPECT_EQ(response.Count(), 0);
}

TEST(NotamList, StaysEmptyWhenItFailed) {
  ViewNOTAMListForSPFIBRsp response;
  test::load(response, test::answer("<n:answer status=\"NO\"><n:spfib>4711</n:spfib><n:notam/>"
                                    "</n:answer>"));
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.SPFIBNumber(), L"");
  EXPECT_EQ(response.Count(), 0);
}

}  // namespace
}  // namespace ktpnaips
