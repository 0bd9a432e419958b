#include <ktpnaips/core/request_document.h>
#include <ktpnaips/spfib/general_met.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "tests/support/failures.h"
#include "tests/support/parts.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

TEST(MetMessageDirectoryRequest, CarriesOnlyTheHeader) {
  const test::FreshSettings settings;
  const GeneralMETMessageDirRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"general-met-dir-rqs");
  EXPECT_EQ(requestDocument(request), test::requestWith("general-met-dir-rqs", ""));
}

TEST(MetMessageDirectoryRequest, HasAHandlerInSubmitOnly) {
  const test::FreshSettings settings;
  const GeneralMETMessageDirRqs request;
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"GeneralMetDir")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

TEST(MetMessageRequest, WritesNameAndTypeAsGiven) {
  const test::FreshSettings settings;
  GetGeneralMETMessageRqs request;
  EXPECT_EQ(request.abstractReq().ElementName(), L"general-met-brief-rqs");
  EXPECT_EQ(request.Name(), L"");
  EXPECT_EQ(request.MessageType(), L"");
  EXPECT_EQ(requestDocument(request),
            test::requestWith("general-met-brief-rqs", "<ndd:name/><ndd:type/>"));
  request.MessageType(L" t ");
  request.Name(L" a  b ");
  EXPECT_EQ(request.Name(), L" a  b ");
  EXPECT_EQ(request.MessageType(), L" t ");
  EXPECT_EQ(requestDocument(request),
            test::requestWith("general-met-brief-rqs",
                              "<ndd:name> a  b </ndd:name><ndd:type> t </ndd:type>"));
}

TEST(MetMessageRequest, HasAHandlerInSubmitOnly) {
  const test::FreshSettings settings;
  GetGeneralMETMessageRqs request;
  EXPECT_EQ(test::reportsOfFailingSubmit(request),
            test::Reports{test::outOfMemory(L"submit", L"GeneralMetRequest")});
  EXPECT_EQ(test::outcomesOfAppendingToNoNode(request),
            test::Outcomes{std::wstring(test::escaped)});
}

const char* const messages =
    "<n:msg><n:type>T1</n:type><n:name> a  b </n:name></n:msg><n:msg><n:name>no type</n:name>"
    "</n:msg><n:msg><n:type>no name</n:type></n:msg><n:msg/>"
    "<n:msg><n:name/><n:type/></n:msg><n:msg><n:name>c</n:name><n:type>T3</n:type></n:msg>";

TEST(MetMessageDirectory, ReadsAsFailedAndEmptyUntilItIsLoaded) {
  const GeneralMETMessageDirRsp response;
  EXPECT_TRUE(response.Error());
  EXPECT_EQ(response.ErrorText(), L"No response set");
  EXPECT_EQ(response.Count(), 0);
  EXPECT_EQ(response.Name(1), L"");
  EXPECT_EQ(response.EntryType(1), L"");
}

TEST(MetMessageDirectory, ListsTheMessagesThatHaveANameAndAType) {
  GeneralMETMessageDirRsp response;
  test::load(response, test::success(messages));
  EXPECT_FALSE(response.Error());
  ASSERT_EQ(response.Count(), 3);
  EXPECT_EQ(response.Name(1), L" a  b ");
  EXPECT_EQ(response.EntryType(1), L"T1");
  EXPECT_EQ(response.Name(2), L"");
  EXPECT_EQ(response.EntryType(2), L"");
  EXPECT_EQ(response.Name(3), L"c");
  EXPECT_EQ(response.EntryType(3), L"T3");
  for (const std::int16_t index : {std::int16_t{0}, std::int16_t{4}, std::int16_t{-1}}) {
    EXPECT_EQ(response.Name(index), L"");
    EXPECT_EQ(response.EntryType(index), L"");
  }
}

TEST(MetMessageDirectory, MayBeEmptyOrFailed) {
  GeneralMETMessageDirRsp empty;
  test::load(empty, test::success("<n:more><n:msg><n:name>a</n:name><n:type>T</n:type></n:msg>"
                                  "</n:more><n:msg><n:more><n:name>a</n:name></n:more>"
                                  "<n:type>T</n:type></n:msg>"));
  EXPECT_FALSE(empty.Error());
  EXPECT_EQ(empty.Count(), 0);
  GeneralMETMessageDirRsp failed;
  test::load(failed,
             test::answer("<n:answer status=\"NO\">" + std::string(messages) + "</n:answer>"));
  EXPECT_TRUE(failed.Error());
  EXPECT_EQ(failed.Count(), 0);
}

TEST(MetMessageDirectory, ReportsAFailingExtractionAndKeepsItsListsAligned) {
  const std::string document = test::success(
      "<n:msg><n:name>a name too long to be stored in place</n:name>"
      "<n:type>a type too long to be stored in place</n:type></n:msg>");
  EXPECT_EQ(test::outcomesOfLoading<GeneralMETMessageDirRsp>(document),
            test::Outcomes{test::outOfMemory(L"extractData", L"GeneralMetDirRsp")});
  const auto answer = test::parsed(document);
  test::outcomesOfFailures([&] {
    const auto response = std::make_shared<GeneralMETMessageDirRsp>();
    return [&answer, response] {
      response->ResponseDoc(answer);
      for (const auto& message : *response) {
        EXPECT_EQ(message.Name.size(), message.EntryType.size());
      }
    };
  });
}

}  // namespace
}  // namespace ktpnaips
