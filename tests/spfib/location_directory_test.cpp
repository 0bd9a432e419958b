#include <ktpnaips/core/request_document.h>
#include <ktpnaips/spfib/location_directory.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

TEST(LocationDirectoryRequest, WritesThePartialNameCleaned) {
  const test::FreshSettings settings;
  LocAirspaceDirectoryRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"loc-airspace-dir-rqs");
  EXPECT_EQ(request.PartialName(), L"");
  EXPECT_EQ(requestDocument(request), test::requestWith("loc-airspace-dir-rqs", "<ndd:loc/>"));
  request.PartialName(L"  syd  ney ");
  EXPECT_EQ(request.PartialName(), L"SYD  NEY");
  EXPECT_EQ(requestDocument(request),
            test::requestWith("loc-airspace-dir-rqs", "<ndd:loc>SYD  NEY</ndd:loc>"));
}

TEST(LocationDirectoryRequest, ReportsAFailingSubmitUnderAnotherName) {
  const test::FreshSettings settings;
  const LocAirspaceDirectoryRqs request;
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"LocationDirRequest")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

TEST(LocationDetails, AreEmptyAtFirstAndHoldWhatIsSet) {
  LocAirspaceDetails details;
  EXPECT_EQ(details.Coord(), nullptr);
  for (auto* property : {&details.Key, &details.Name, &details.Description}) {
    EXPECT_EQ((*property)(), L"");
    (*property)(L" a ");
    EXPECT_EQ((*property)(), L" a ");
  }
  const auto point = std::make_shared<CoordinatePoint>();
  details.Coord(point);
  EXPECT_EQ(details.Coord(), point);
}

std::string coordElement(const std::string& lat, const std::string& lon) {
  return "<n:loc-airspace><n:coord><n:lat>" + lat + "</n:lat><n:long>" + lon +
         "</n:long></n:coord></n:loc-airspace>";
}

TEST(LocationDirectory, ReadsWhatItsEntriesHave) {
  LocAirspaceDirectoryRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.Count(), 0);
  test::load(response,
             test::success("<n:loc-airspace><n:description> Sydney </n:description><n:coord>"
                           "<n:long>151.18</n:long><n:lat>-33.95</n:lat></n:coord>"
                           "<n:name>yssy</n:name><n:key>17</n:key></n:loc-airspace>"
                           "<n:loc-airspace><n:key>18</n:key></n:loc-airspace>"
                           "<n:loc-airspace><n:coord/></n:loc-airspace>"));
  EXPECT_FALSE(response.Error());
  ASSERT_EQ(response.Count(), 3);
  const auto first = response.Item(1);
  EXPECT_EQ(first->Key(), L"17");
  EXPECT_EQ(first->Name(), L"yssy");
  EXPECT_EQ(first->Description(), L" Sydney ");
  ASSERT_NE(first->Coord(), nullptr);
  EXPECT_EQ(first->Coord()->Lat(), -33.95);
  EXPECT_EQ(first->Coord()->Lon(), 151.18);
  EXPECT_EQ(first->Coord()->toString(), L"3357S15111E");
  EXPECT_EQ(response.Item(2)->Key(), L"18");
  EXPECT_EQ(response.Item(2)->Name(), L"");
  EXPECT_EQ(response.Item(2)->Description(), L"");
  EXPECT_EQ(response.Item(2)->Coord(), nullptr);
  EXPECT_EQ(response.Item(3)->Coord(), nullptr);
  EXPECT_EQ(response.Item(0), nullptr);
  EXPECT_EQ(response.Item(4), nullptr);
}

TEST(LocationDirectory, ReadsTheNumberAtTheStartOfACoordinate) {
  LocAirspaceDirectoryRsp response;
  test::load(response,
             test::success(coordElement(" -33.5 deg", "151,5") + coordElement("north", "") +
                           coordElement("33e2", ".5S") + coordElement("33D52", "151 12 30") +
                           coordElement("- 3", "+1.2.3")));
  ASSERT_EQ(response.Count(), 5);
  EXPECT_EQ(response.Item(1)->Coord()->Lat(), -33.5);
  EXPECT_EQ(response.Item(1)->Coord()->Lon(), 151.0);
  EXPECT_EQ(response.Item(2)->Coord()->Lat(), 0.0);
  EXPECT_EQ(response.Item(2)->Coord()->Lon(), 0.0);
  EXPECT_EQ(response.Item(3)->Coord()->Lat(), 33.0);
  EXPECT_EQ(response.Item(3)->Coord()->Lon(), 0.5);
  EXPECT_EQ(response.Item(4)->Coord()->Lat(), 33.0);
  EXPECT_EQ(response.Item(4)->Coord()->Lon(), 151.0);
  EXPECT_EQ(response.Item(5)->Coord()->Lat(), 0.0);
  EXPECT_EQ(response.Item(5)->Coord()->Lon(), 1.2);
}

TEST(LocationDirectory, HasNoPositionWithoutALatitude) {
  LocAirspaceDirectoryRsp response;
  test::load(response, test::success("<n:loc-airspace><n:coord><n:long>151</n:long></n:coord>"
                                     "</n:loc-airspace>"));
  ASSERT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1)->Coord(), nullptr);
}

TEST(LocationDirectory, EndsBeforeAnEntryWithALatitudeOnly) {
  const test::FailureRecorder recorder;
  LocAirspaceDirectoryRsp response;
  test::load(response,
             test::success(coordElement("1", "2") +
                           "<n:loc-airspace><n:key>17</n:key><n:coord><n:lat>-33</n:lat></n:coord>"
                           "</n:loc-airspace>" +
                           coordElement("3", "4")));
  EXPECT_FALSE(response.Error());
  ASSERT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1)->Coord()->Lon(), 2.0);
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 91 (Object variable or With block variable not set) in procedure "
                          L"extractData of Class Module LocAirspaceDirectoryRsp"});
}

TEST(LocationDirectory, EndsBeforeAnEntryWithATooLargeNumber) {
  const std::string digits(400, '9');
  for (const std::string& tooLarge : {coordElement(digits, "2"), coordElement("1", '-' + digits)}) {
    const test::FailureRecorder recorder;
    LocAirspaceDirectoryRsp response;
    test::load(response, test::success(coordElement("1", "2") + tooLarge));
    EXPECT_EQ(response.Count(), 1);
    EXPECT_EQ(recorder.reports(),
              test::Reports{L"Error 6 (Overflow) in procedure extractData of Class Module "
                            L"LocAirspaceDirectoryRsp"});
  }
}

TEST(LocationDirectory, KeepsCoordinatesOfAnyMagnitude) {
  LocAirspaceDirectoryRsp response;
  test::load(response, test::success(coordElement('1' + std::string(308, '0'), "-40000")));
  ASSERT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1)->Coord()->Lat(), 1e308);
  EXPECT_EQ(response.Item(1)->Coord()->Lon(), -40000.0);
}

TEST(LocationDirectory, MayBeEmptyOrFailed) {
  LocAirspaceDirectoryRsp empty;
  test::load(empty, test::success("<n:more><n:loc-airspace/></n:more><loc-airspace/>"));
  EXPECT_FALSE(empty.Error());
  EXPECT_EQ(empty.Count(), 0);
  LocAirspaceDirectoryRsp failed;
  test::load(failed,
             test::answer("<n:answer status=\"NO\">" + coordElement("1", "2") + "</n:answer>"));
  EXPECT_TRUE(failed.Error());
  EXPECT_EQ(failed.Count(), 0);
}

TEST(LocationDirectory, TakesEntriesFromTheHost) {
  LocAirspaceDirectoryRsp response;
  const auto details = std::make_shared<LocAirspaceDetails>();
  response.Add(nullptr);
  response.Add(details);
  EXPECT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1), details);
}

}  // namespace
}  // namespace ktpnaips
