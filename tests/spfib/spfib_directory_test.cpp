#include <ktpnaips/core/request_document.h>
#include <ktpnaips/spfib/spfib_directory.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/date_time.h"
#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using test::at;

TEST(BulletinDirectoryRequest, NamesItsGroupAsGivenWhenThereIsOne) {
  const test::FreshSettings settings;
  ActiveSPFIBDirectoryRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"active-spfib-dir-rqs");
  EXPECT_EQ(request.GroupId(), L"");
  EXPECT_EQ(requestDocument(request), test::requestWith("active-spfib-dir-rqs", ""));
  request.GroupId(L" Aero  Club ");
  EXPECT_EQ(request.GroupId(), L" Aero  Club ");
  EXPECT_EQ(requestDocument(request),
            test::requestWith("active-spfib-dir-rqs",
                              "<ndd:group-id><ndd:group-name> Aero  Club </ndd:group-name>"
                              "</ndd:group-id>"));
  request.GroupId(L" ");
  EXPECT_EQ(requestDocument(request),
            test::requestWith("active-spfib-dir-rqs",
                              "<ndd:group-id><ndd:group-name> </ndd:group-name></ndd:group-id>"));
}

TEST(BulletinDirectoryRequest, HasAHandlerInSubmitOnly) {
  const test::FreshSettings settings;
  ActiveSPFIBDirectoryRqs request;
  request.GroupId(L"Aero Club");
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"ActiveSPFIBDir")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

TEST(BulletinDescriptor, IsEmptyAtFirstAndHoldsWhatIsSet) {
  SPFIBDescriptor descriptor;
  EXPECT_EQ(descriptor.Number(), L"");
  EXPECT_EQ(descriptor.Aircraft(), L"");
  EXPECT_EQ(descriptor.DTG(), at(1899, 12, 30));
  descriptor.Number(L" a1 ");
  descriptor.Aircraft(L" vh ");
  descriptor.DTG(at(2026, 1, 2));
  EXPECT_EQ(descriptor.Number(), L" a1 ");
  EXPECT_EQ(descriptor.Aircraft(), L" vh ");
  EXPECT_EQ(descriptor.DTG(), at(2026, 1, 2));
}

TEST(BulletinDirectory, ReadsAsFailedAndEmptyUntilItIsLoaded) {
  const ActiveSPFIBDirectoryRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.Count(), 0);
}

const char* const threeEntries =
    "<n:spfib><n:dtg>2026-11-16T02:23:01Z</n:dtg><n:acid> vhabc </n:acid>"
    "<n:number>4711</n:number></n:spfib><n:spfib><n:number>4712</n:number></n:spfib>"
    "<n:spfib><n:dtg>16th</n:dtg></n:spfib>";

TEST(BulletinDirectory, ReadsWhatItsEntriesHave) {
  ActiveSPFIBDirectoryRsp response;
  test::load(response, test::success(threeEntries));
  EXPECT_FALSE(response.Error());
  ASSERT_EQ(response.Count(), 3);
  EXPECT_EQ(response.Item(1)->Number(), L"4711");
  EXPECT_EQ(response.Item(1)->Aircraft(), L" vhabc ");
  EXPECT_EQ(response.Item(1)->DTG(), at(2026, 11, 16, 2, 23, 1));
  EXPECT_EQ(response.Item(2)->Number(), L"4712");
  EXPECT_EQ(response.Item(2)->Aircraft(), L"");
  EXPECT_EQ(response.Item(2)->DTG(), at(1899, 12, 30));
  EXPECT_EQ(response.Item(3)->Number(), L"");
  EXPECT_EQ(response.Item(3)->DTG(), at(1970, 1, 1));
  EXPECT_EQ(response.Item(0), nullptr);
  EXPECT_EQ(response.Item(4), nullptr);
}

TEST(BulletinDirectory, MayBeEmpty) {
  ActiveSPFIBDirectoryRsp response;
  test::load(response, test::success("<n:more><n:spfib/></n:more>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(response.Item(1), nullptr);
}

TEST(BulletinDirectory, StaysEmptyWhenItFailed) {
  ActiveSPFIBDirectoryRsp response;
  test::load(response,
             test::answer("<n:answer status=\"NO\">" + std::string(threeEntries) + "</n:answer>"));
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.Count(), 0);
}

TEST(BulletinDirectory, TakesEntriesFromTheHost) {
  ActiveSPFIBDirectoryRsp response;
  const auto descriptor = std::make_shared<SPFIBDescriptor>();
  response.Add(nullptr);
  response.Add(descriptor);
  EXPECT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1), descriptor);
}

TEST(BulletinDirectory, ReportsAFailingExtractionAndKeepsTheEntryInHand) {
  EXPECT_EQ(test::outcomesOfLoading<ActiveSPFIBDirectoryRsp>(test::success(threeEntries)),
            test::Outcomes{test::outOfMemory(L"extractData", L"ActiveSPFIBDirRsp")});
  const auto document = test::parsed(test::success(
      "<n:spfib><n:number>a number too long to be stored in place</n:number></n:spfib>"));
  bool keptTheEntry = false;
  test::outcomesOfFailures([&] {
    const auto response = std::make_shared<ActiveSPFIBDirectoryRsp>();
    return [&document, &keptTheEntry, response] {
      response->ResponseDoc(document);
      keptTheEntry =
          keptTheEntry || (response->Count() == 1 && response->Item(1)->Number().empty());
    };
  });
  EXPECT_TRUE(keptTheEntry);
}

}  // namespace
}  // namespace ktpnaips
