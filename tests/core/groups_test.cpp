#include <ktpnaips/core/groups.h>
#include <ktpnaips/core/request_document.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

TEST(GroupRequest, HasNoChildren) {
  const test::FreshSettings settings;
  const GetGroupAffiliationRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"get-group-affiliation-rqs");
  EXPECT_EQ(requestDocument(request), test::requestWith("get-group-affiliation-rqs", ""));
}

TEST(GroupRequest, ReportsAFailingSubmitUnderTheNameOfItsAnswer) {
  const test::FreshSettings settings;
  const GetGroupAffiliationRqs request;
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"GetGroupAffiliationRsp")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

TEST(Group, IsEmptyAtFirstAndHoldsWhatIsSet) {
  GroupMemberInfo group;
  EXPECT_EQ(group.Name(), L"");
  EXPECT_FALSE(group.Manager());
  group.Name(L" Aero  Club ");
  group.Manager(true);
  EXPECT_EQ(group.Name(), L" Aero  Club ");
  EXPECT_TRUE(group.Manager());
}

TEST(Groups, ReadAsFailedAndEmptyUntilTheyAreLoaded) {
  const GetGroupAffiliationRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(response.Item(1), nullptr);
}

TEST(Groups, HaveTheirNamesAndManagersInTheOrderOfTheAnswer) {
  GetGroupAffiliationRsp response;
  test::load(response,
             test::success("<n:group manager=\"true\"><n:group-name> Aero  Club </n:group-name>"
                           "</n:group><n:group manager=\"TRUE\"><n:group-name>b</n:group-name>"
                           "</n:group>"));
  EXPECT_FALSE(response.Error());
  ASSERT_EQ(response.Count(), 2);
  EXPECT_EQ(response.Item(1)->Name(), L" Aero  Club ");
  EXPECT_TRUE(response.Item(1)->Manager());
  EXPECT_EQ(response.Item(2)->Name(), L"b");
  EXPECT_FALSE(response.Item(2)->Manager());
  EXPECT_EQ(response.Item(0), nullptr);
  EXPECT_EQ(response.Item(3), nullptr);
}

TEST(Groups, TakeOnlyTheTextsOneAndTrueForAManager) {
  const auto isManager = [](const std::string& attribute) {
    GetGroupAffiliationRsp response;
    test::load(response, test::success("<n:group " + attribute + "/>"));
    EXPECT_EQ(response.Count(), 1);
    return response.Count() == 1 && response.Item(1)->Manager();
  };
  EXPECT_TRUE(isManager("manager=\"true\""));
  EXPECT_TRUE(isManager("manager=\"1\""));
  for (const char* attribute :
       {"", "manager=\"\"", "manager=\"True\"", "manager=\"0\"", "manager=\"false\"",
        "manager=\" true\"", "manager=\"01\"", "manager=\"yes\"", "n:manager=\"true\""}) {
    EXPECT_FALSE(isManager(attribute)) << attribute;
  }
}

TEST(Groups, WithoutANameAreKept) {
  GetGroupAffiliationRsp response;
  test::load(response, test::success("<n:group manager=\"1\"/><n:group><name>x</name></n:group>"
                                     "<n:group><n:more><n:group-name>y</n:group-name></n:more>"
                                     "</n:group>"));
  ASSERT_EQ(response.Count(), 3);
  EXPECT_EQ(response.Item(1)->Name(), L"");
  EXPECT_TRUE(response.Item(1)->Manager());
  EXPECT_EQ(response.Item(2)->Name(), L"");
  EXPECT_EQ(response.Item(3)->Name(), L"");
}

TEST(Groups, AreNoneWhenTheAnswerHasNoneOrFailed) {
  GetGroupAffiliationRsp empty;
  test::load(empty, test::success("<n:more><n:group/></n:more>"));
  EXPECT_FALSE(empty.Error());
  EXPECT_EQ(empty.Count(), 0);
  GetGroupAffiliationRsp failed;
  test::load(failed, test::answer("<n:answer status=\"NO\"><n:group/></n:answer>"));
  EXPECT_TRUE(failed.Error());
  EXPECT_EQ(failed.Count(), 0);
}

TEST(Groups, MayBeAddedByTheHost) {
  GetGroupAffiliationRsp response;
  const auto group = std::make_shared<GroupMemberInfo>();
  response.Add(nullptr);
  response.Add(group);
  EXPECT_EQ(response.Count(), 1);
  EXPECT_EQ(response.Item(1), group);
}

TEST(Groups, ReportAFailingExtraction) {
  EXPECT_EQ(test::outcomesOfLoading<GetGroupAffiliationRsp>(test::success(
                "<n:group manager=\"1\"><n:group-name>a name too long to be stored in place"
                "</n:group-name></n:group>")),
            test::Outcomes{test::outOfMemory(L"extractData", L"GetGroupAffiliationRsp")});
}

}  // namespace
}  // namespace ktpnaips
