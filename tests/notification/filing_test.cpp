#include <ktpnaips/core/request_document.h>
#include <ktpnaips/notification/filing.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "tests/support/failure_recorder.h"
#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

using test::missingObject;
using test::outOfMemory;

template <class Notification>
class FailingNotification : public Notification {
 public:
  void appendTo(const xml::Node&, std::wstring_view) const override {
    throw RuntimeFault(fault::typeMismatch);
  }
};

/// The request document with these attributes beside the account's.
std::string icaoDocument(const std::string& ignore, const std::string& content) {
  return test::requestEnvelope(test::requestStart("submit-icao-fn-rqs") + " ignore-atyp-reg=\"" +
                               ignore + "\">" + content + "</ndd:submit-icao-fn-rqs>");
}

std::string sarTimeDocument(const std::string& content) {
  return test::requestWith("submit-sar-fn-rqs", content);
}

const char* const emptyIcao =
    "<ndd:flight-notif><ndd:domestic>true</ndd:domestic></ndd:flight-notif>";
const char* const emptySarTime =
    "<ndd:flight-notif><ndd:acid>NOSEND</ndd:acid><ndd:atyp/><ndd:sar>"
    "<ndd:sartimetban>TBA</ndd:sartimetban><ndd:ats-unit/><ndd:location/></ndd:sar><ndd:pob/>"
    "<ndd:radios VHF=\"false\" UHF=\"false\" elt-406-MHz=\"true\"/>"
    "<ndd:pilot name=\"\" phone=\"\"/></ndd:flight-notif>";
const char* const aeroClub =
    "<ndd:group-id><ndd:group-name> Aero  Club </ndd:group-name></ndd:group-id>";

class Filing : public testing::Test {
 private:
  test::FreshSettings settings_;
};

TEST_F(Filing, OfAnIcaoNotificationHasItsDefaults) {
  const SubmitICAOFlightNotifRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"submit-icao-fn-rqs");
  ASSERT_NE(request.Notification(), nullptr);
  EXPECT_TRUE(request.Notification()->Domestic());
  EXPECT_EQ(request.GroupId(), L"");
  EXPECT_FALSE(request.IgnoreTypeMismatch());
  EXPECT_EQ(requestDocument(request), icaoDocument("false", emptyIcao));
}

TEST_F(Filing, OfAnIcaoNotificationSaysWhetherATypeMismatchIsIgnored) {
  SubmitICAOFlightNotifRqs request;
  request.IgnoreTypeMismatch(true);
  EXPECT_EQ(requestDocument(request), icaoDocument("true", emptyIcao));
}

TEST_F(Filing, OfAnIcaoNotificationNamesItsGroupAsGiven) {
  SubmitICAOFlightNotifRqs request;
  request.GroupId(L" Aero  Club ");
  EXPECT_EQ(request.GroupId(), L" Aero  Club ");
  EXPECT_EQ(requestDocument(request), icaoDocument("false", std::string(emptyIcao) + aeroClub));
  request.GroupId(L" ");
  EXPECT_EQ(requestDocument(request),
            icaoDocument("false", std::string(emptyIcao) +
                                      "<ndd:group-id><ndd:group-name> </ndd:group-name>"
                                      "</ndd:group-id>"));
}

TEST_F(Filing, OfAnIcaoNotificationWithoutOneSendsAnEmptyElement) {
  SubmitICAOFlightNotifRqs request;
  request.Notification(nullptr);
  request.GroupId(L" Aero  Club ");
  EXPECT_EQ(requestDocument(request),
            icaoDocument("false", std::string("<ndd:flight-notif/>") + aeroClub));
}

TEST_F(Filing, OfAnIcaoNotificationHasItsOwnAttributeAfterTheScope) {
  SubmitICAOFlightNotifRqs request;
  request.abstractReq().User(L"pilot1");
  request.abstractReq().Password(L"pw");
  request.abstractReq().Scope(L"All");
  EXPECT_EQ(requestDocument(request),
            test::requestEnvelope("<ndd:submit-icao-fn-rqs" + test::nddDeclaration() +
                                  " source=\"orvalix\" requestor=\"PILOT1\" password=\"pw\" "
                                  "scope=\"All\" ignore-atyp-reg=\"false\">" +
                                  emptyIcao + "</ndd:submit-icao-fn-rqs>"));
}

TEST_F(Filing, OfAnIcaoNotificationReportsAFailureAndKeepsWhatItWrote) {
  SubmitICAOFlightNotifRqs request;
  request.GroupId(L"Aero Club");
  request.Notification(std::make_shared<FailingNotification<ICAOFlightNotif>>());
  const test::FailureRecorder recorder;
  EXPECT_EQ(requestDocument(request), icaoDocument("false", "<ndd:flight-notif/>"));
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 13 (Type mismatch) in procedure IAppendable_appendTo of Class "
                          L"Module SubmitICAOFlightNotifRqs"});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{missingObject(L"SubmitICAOFlightNotifRqs")});
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{outOfMemory(L"submit", L"SubmitICAOFlightNotifRqs")});
}

TEST_F(Filing, OfASarTimeNotificationHasItsDefaults) {
  const SubmitSARTimeNotifRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"submit-sar-fn-rqs");
  ASSERT_NE(request.Notification(), nullptr);
  EXPECT_EQ(request.Notification()->Aircraft(), L"NOSEND");
  EXPECT_EQ(request.GroupId(), L"");
  EXPECT_EQ(requestDocument(request), sarTimeDocument(emptySarTime));
}

TEST_F(Filing, OfASarTimeNotificationNamesItsGroupAsGiven) {
  SubmitSARTimeNotifRqs request;
  request.GroupId(L" Aero  Club ");
  EXPECT_EQ(requestDocument(request), sarTimeDocument(std::string(emptySarTime) + aeroClub));
}

TEST_F(Filing, OfASarTimeNotificationWithoutOneSendsAnEmptyElement) {
  SubmitSARTimeNotifRqs request;
  request.Notification(nullptr);
  EXPECT_EQ(requestDocument(request), sarTimeDocument("<ndd:flight-notif/>"));
}

TEST_F(Filing, OfASarTimeNotificationReportsItsFailuresUnderTwoOtherNames) {
  SubmitSARTimeNotifRqs request;
  request.GroupId(L"Aero Club");
  request.Notification(std::make_shared<FailingNotification<SARTimeFlightNotif>>());
  const test::FailureRecorder recorder;
  EXPECT_EQ(requestDocument(request), sarTimeDocument("<ndd:flight-notif/>"));
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 13 (Type mismatch) in procedure IAppendable_appendTo of Class "
                          L"Module SubmitSARTimeFlightNotification"});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{missingObject(L"SubmitSARTimeFlightNotification")});
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{outOfMemory(L"submit", L"SubmitSARTimeFlightNotif")});
}

template <class Request, class Notification>
void expectItsOwnNotification() {
  Request request;
  EXPECT_NE(request.Notification(), Request().Notification());
  const auto notification = std::make_shared<Notification>();
  request.Notification(notification);
  EXPECT_EQ(request.Notification(), notification);
}

TEST_F(Filing, IsOfANotificationOfItsOwnOrTheHosts) {
  expectItsOwnNotification<SubmitICAOFlightNotifRqs, ICAOFlightNotif>();
  expectItsOwnNotification<SubmitSARTimeNotifRqs, SARTimeFlightNotif>();
}

TEST(IcaoFilingAnswer, ReadsAsFailedAndEmptyUntilItIsLoaded) {
  const SubmitICAOFlightNotifRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(response.Item(1), L"");
}

const char* const threeTexts =
    "<n:fpl-text>(FPL-VHABC</n:fpl-text><n:other/><n:fpl-text/><n:fpl-text> a&amp;b\n"
    "</n:fpl-text>";

TEST(IcaoFilingAnswer, HoldsTheFlightPlanTextsInTheirOrder) {
  SubmitICAOFlightNotifRsp response;
  test::load(response, test::success(threeTexts));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Count(), 3);
  EXPECT_EQ(response.Item(0), L"");
  EXPECT_EQ(response.Item(1), L"(FPL-VHABC");
  EXPECT_EQ(response.Item(2), L"");
  EXPECT_EQ(response.Item(3), L" a&b\n");
  EXPECT_EQ(response.Item(4), L"");
  EXPECT_EQ(response.Item(-1), L"");
}

TEST(IcaoFilingAnswer, ReadsOnlyItsOwnChildrenInTheSchemaNamespace) {
  SubmitICAOFlightNotifRsp response;
  test::load(response, test::success("<n:more><n:fpl-text>deep</n:fpl-text></n:more>"
                                     "<fpl-text>bare</fpl-text>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.Count(), 0);
}

TEST(IcaoFilingAnswer, StaysEmptyWhenItFailed) {
  SubmitICAOFlightNotifRsp response;
  test::load(response, test::answer("<n:answer status=\"FAILURE\"><n:fpl-text>x</n:fpl-text>"
                                    "<n:info>Refused</n:info></n:answer>"));
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"NAIPS Error: FAILURE\r\nInfo: Refused\r\n");
  EXPECT_EQ(response.Count(), 0);
}

TEST(IcaoFilingAnswer, HasNoHandlerOfItsOwn) {
  EXPECT_EQ(test::outcomesOfLoading<SubmitICAOFlightNotifRsp>(
                test::success("<n:fpl-text>a text too long to be stored in place</n:fpl-text>")),
            test::Outcomes{std::wstring(test::escaped)});
}

TEST(SarTimeFilingAnswer, HoldsTheFirstNotificationText) {
  SubmitSARTimeNotifRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.NotifText(), L"");
  test::load(response,
             test::success("<n:notif-text> first\n</n:notif-text><n:notif-text>x</n:notif-text>"));
  EXPECT_FALSE(response.Error());
  EXPECT_EQ(response.NotifText(), L" first\n");
}

TEST(SarTimeFilingAnswer, StaysEmptyWithoutATextOrWhenItFailed) {
  SubmitSARTimeNotifRsp without;
  test::load(without, test::success("<n:more><n:notif-text>deep</n:notif-text></n:more>"));
  EXPECT_FALSE(without.Error());
  EXPECT_EQ(without.NotifText(), L"");
  SubmitSARTimeNotifRsp failed;
  test::load(failed,
             test::answer("<n:answer status=\"NO\"><n:notif-text>x</n:notif-text></n:answer>"));
  EXPECT_TRUE(failed.Error());
  EXPECT_EQ(failed.NotifText(), L"");
}

TEST(SarTimeFilingAnswer, HasNoHandlerOfItsOwn) {
  EXPECT_EQ(test::outcomesOfLoading<SubmitSARTimeNotifRsp>(test::success(
                "<n:notif-text>a text too long to be stored in place</n:notif-text>")),
            test::Outcomes{std::wstring(test::escaped)});
}

}  // namespace
}  // namespace ktpnaips
