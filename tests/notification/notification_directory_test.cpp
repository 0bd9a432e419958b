#include <ktpnaips/core/request_document.h>
#include <ktpnaips/notification/notification_directory.h>
#include <ktpnaips/spfib/spfib_directory.h>

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

#include "tests/support/date_time.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using test::at;

class NotificationDirectoryRequest : public testing::Test {
 protected:
  ActiveFlightNotifDirRqs request;

 private:
  test::FreshSettings settings_;
};

std::string document(const std::string& content) {
  return test::requestWith("active-fn-dir-rqs", content);
}

TEST_F(NotificationDirectoryRequest, CarriesOnlyTheHeaderAtFirst) {
  EXPECT_EQ(request.abstractReq().ElementName(), L"active-fn-dir-rqs");
  EXPECT_EQ(request.Aircraft(), L"");
  EXPECT_EQ(request.GroupId(), L"");
  EXPECT_EQ(requestDocument(request), document(""));
}

TEST_F(NotificationDirectoryRequest, NamesTheGroupBeforeTheAircraft) {
  request.Aircraft(L"  vh   abc ");
  EXPECT_EQ(request.Aircraft(), L"VH ABC");
  EXPECT_EQ(requestDocument(request), document("<ndd:acid>VH ABC</ndd:acid>"));
  request.GroupId(L" Aero  Club ");
  EXPECT_EQ(request.GroupId(), L" Aero  Club ");
  EXPECT_EQ(requestDocument(request),
            document("<ndd:group-id><ndd:group-name> Aero  Club </ndd:group-name></ndd:group-id>"
                     "<ndd:acid>VH ABC</ndd:acid>"));
  request.Aircraft(L"  ");
  EXPECT_EQ(requestDocument(request),
            document("<ndd:group-id><ndd:group-name> Aero  Club </ndd:group-name></ndd:group-id>"));
}

TEST_F(NotificationDirectoryRequest, HasAHandlerInSubmitOnly) {
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"FlightNotificationDir")});
  request.Aircraft(L"vhabc");
  request.GroupId(L"Aero Club");
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

TEST(NotificationDetails, AreEmptyAtFirstAndHoldWhatIsSet) {
  ActiveFlightNotifDetails details;
  EXPECT_EQ(details.OwnerId(), L"");
  EXPECT_EQ(details.Route(), L"");
  EXPECT_EQ(details.Aircraft(), L"");
  EXPECT_EQ(details.DTG(), at(1899, 12, 30));
  EXPECT_EQ(details.GroupId(), L"");
  EXPECT_EQ(details.Id(), L"");
  details.OwnerId(L" pilot1 ");
  details.Route(L" dct  wol ");
  details.Aircraft(L" vh ");
  details.DTG(at(2026, 1, 2, 3, 4, 5));
  details.GroupId(L" Aero  Club ");
  details.Id(L" a1 ");
  EXPECT_EQ(details.OwnerId(), L" pilot1 ");
  EXPECT_EQ(details.Route(), L" dct  wol ");
  EXPECT_EQ(details.Aircraft(), L" vh ");
  EXPECT_EQ(details.DTG(), at(2026, 1, 2, 3, 4, 5));
  EXPECT_EQ(details.GroupId(), L" Aero  Club ");
  EXPECT_EQ(details.Id(), L" a1 ");
}

TEST(NotificationDirectory, ReadsAsFailedAndEmptyUntilItIsLoaded) {
  const ActiveFlightNotifDirRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(response.Item(1), nullptr);
}

const char* const twoEntries =
    "<n:flight-notif><n:route> YSSY YMML </n:route><n:acid>vhabc</n:acid>"
    "<n:timestamp>2026-03-07T23:05:01Z</n:timestamp><n:group-id>Aero Club</n:group-id>"
    "<n:owner-id>pilot1</n:owner-id><n:id>4711</n:id></n:flight-notif><n:other/>"
    "<n:flight-notif><n:id>4712</n:id></n:flight-notif>";

TEST(NotificationDirectory, ReadsEveryFieldOfItsEntries) {
  ActiveFlightNotifDirRsp response;
  test::load(response, test::success(twoEntries));
  EXPECT_FALSE(response.Error());
  ASSERT_EQ(response.Count(), 2);
  const auto first = response.Item(1);
  EXPECT_EQ(first->Id(), L"4711");
  EXPECT_EQ(first->OwnerId(), L"pilot1");
  EXPECT_EQ(first->GroupId(), L"Aero Club");
  EXPECT_EQ(first->DTG(), at(2026, 3, 7, 23, 5, 1));
  EXPECT_EQ(first->Aircraft(), L"vhabc");
  EXPECT_EQ(first->Route(), L" YSSY YMML ");
  EXPECT_EQ(response.Item(0), nullptr);
  EXPECT_EQ(response.Item(3), nullptr);
}

TEST(NotificationDirectory, LeavesMissingFieldsUnset) {
  ActiveFlightNotifDirRsp response;
  test::load(response, test::success(twoEntries));
  const auto second = response.Item(2);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(second->Id(), L"4712");
  EXPECT_EQ(second->OwnerId(), L"");
  EXPECT_EQ(second->GroupId(), L"");
  EXPECT_EQ(second->DTG(), at(1899, 12, 30));
  EXPECT_EQ(second->Aircraft(), L"");
  EXPECT_EQ(second->Route(), L"");
}

TEST(NotificationDirectory, TakesAnUnreadableTimeForThatOf1970) {
  ActiveFlightNotifDirRsp response;
  test::load(response, test::success("<n:flight-notif><n:timestamp>soon</n:timestamp>"
                                     "</n:flight-notif><n:flight-notif><n:timestamp/>"
                                     "</n:flight-notif>"));
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->DTG(), at(1970, 1, 1));
  EXPECT_EQ(response.Item(2)->DTG(), at(1970, 1, 1));
}

TEST(NotificationDirectory, StaysEmptyWhenItFailed) {
  ActiveFlightNotifDirRsp response;
  test::load(response, test::answer("<n:answer status=\"FAILURE\">" + std::string(twoEntries) +
                                    "</n:answer>"));
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.Count(), 0);
}

TEST(NotificationDirectory, ReadsOnlyItsOwnChildrenInTheSchemaNamespace) {
  ActiveFlightNotifDirRsp response;
  test::load(response,
             test::success("<n:more><n:flight-notif/></n:more><flight-notif/><n:flight-notif>"
                           "<id>1</id><n:more><n:route>deep</n:route></n:more></n:flight-notif>"));
  ASSERT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1)->Id(), L"");
  EXPECT_EQ(response.Item(1)->Route(), L"");
}

TEST(NotificationDirectory, ReadsNothingWithoutAPayload) {
  ActiveFlightNotifDirRsp response;
  response.Error(false);
  const test::FailureRecorder recorder;
  test::load(response, test::answer("<n:answer>no status</n:answer>"));
  EXPECT_FALSE(response.Payload());
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(recorder.reports().size(), 1U);
  EXPECT_TRUE(recorder.reports().front().ends_with(L"loadResponse of Module Utils"));
}

template <class Entry>
constexpr bool isTaken = requires(ActiveFlightNotifDirRsp response, std::shared_ptr<Entry> entry) {
  response.Add(entry);
};

TEST(NotificationDirectory, TakesOnlyBulletinDescriptorsFromTheHost) {
  static_assert(isTaken<SPFIBDescriptor> && !isTaken<ActiveFlightNotifDetails>);
  ActiveFlightNotifDirRsp response;
  response.Add(nullptr);
  EXPECT_EQ(response.Count(), 0);
  response.Add(std::make_shared<SPFIBDescriptor>());
  EXPECT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1), nullptr);
}

TEST(NotificationDirectory, ReportsAFailingExtractionUnderTheNameOfTheBulletinsDirectory) {
  EXPECT_EQ(test::outcomesOfLoading<ActiveFlightNotifDirRsp>(test::success(twoEntries)),
            test::Outcomes{test::outOfMemory(L"extractData", L"ActiveSPFIBDirRsp")});
}

TEST(NotificationDirectory, KeepsTheEntriesReadBeforeAFailure) {
  const auto document = test::parsed(test::success(twoEntries));
  bool keptTheFirst = false;
  test::outcomesOfFailures([&] {
    const auto response = std::make_shared<ActiveFlightNotifDirRsp>();
    return [&document, &keptTheFirst, response] {
      response->ResponseDoc(document);
      keptTheFirst = keptTheFirst || (response->Count() == 1 && !response->Item(1)->Id().empty());
    };
  });
  EXPECT_TRUE(keptTheFirst);
}

TEST(NotificationDirectory, ReadsTheFieldsOfAnEntryInAFixedOrder) {
  const std::string text = "a text too long to be stored in place";
  const auto document = test::parsed(test::success(
      "<n:flight-notif><n:route>" + text + "</n:route><n:acid>" + text + "</n:acid><n:timestamp>" +
      "2026-03-07T23:05:01Z</n:timestamp><n:group-id>" + text + "</n:group-id><n:owner-id>" + text +
      "</n:owner-id><n:id>" + text + "</n:id></n:flight-notif>"));
  std::set<std::string> states;
  test::outcomesOfFailures([&] {
    const auto response = std::make_shared<ActiveFlightNotifDirRsp>();
    return [&document, &states, response] {
      response->ResponseDoc(document);
      if (response->Count() != 1) return;
      const ActiveFlightNotifDetails& entry = *response->Item(1);
      std::string state;
      for (const bool isRead :
           {!entry.Id().empty(), !entry.OwnerId().empty(), !entry.GroupId().empty(),
            entry.DTG() != at(1899, 12, 30), !entry.Aircraft().empty(), !entry.Route().empty()}) {
        state += isRead ? 'x' : '-';
      }
      states.insert(state);
    };
  });
  // A time that fails to convert has a handler of its own: the fields after it are still read.
  EXPECT_EQ(states, (std::set<std::string>{"------", "x-----", "xx----", "xxx---", "xxx-xx",
                                           "xxxx--", "xxxxx-", "xxxxxx"}));
}

}  // namespace
}  // namespace ktpnaips
