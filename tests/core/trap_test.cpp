#include <ktpnaips/core/failure_report.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <thread>

#include "tests/support/failure_recorder.h"

namespace ktpnaips {
namespace {

std::wstring reportOf(const Procedure& procedure, void (*body)()) {
  const test::FailureRecorder recorder;
  trapped(procedure, body);
  const auto reports = recorder.reports();
  return reports.size() == 1 ? reports[0] : L"";
}

TEST(Trap, ReportsAFaultInAProcedureOfAClass) {
  EXPECT_EQ(reportOf(inClass(L"submit", L"AuthenticateRequest"), [] { throw RuntimeFault(13); }),
            L"Error 13 (Type mismatch) in procedure submit of Class Module AuthenticateRequest");
}

TEST(Trap, ReportsAFaultInAProcedureOfAModule) {
  EXPECT_EQ(reportOf(inModule(L"loadResponse", L"Utils"), [] { throw RuntimeFault(94); }),
            L"Error 94 (Invalid use of Null) in procedure loadResponse of Module Utils");
}

TEST(Trap, ReportsAFaultInAppendToUnderTheNameOfTheInterface) {
  EXPECT_EQ(reportOf(appendToOf(L"LocationBriefRequest"), [] { throw RuntimeFault(6); }),
            L"Error 6 (Overflow) in procedure IAppendable_appendTo of Class Module "
            L"LocationBriefRequest");
}

TEST(Trap, ReportsTheNumberAndTextThatAFaultCarries) {
  EXPECT_EQ(reportOf(inModule(L"p", L"M"),
                     [] { throw RuntimeFault(-2147467259, L"Text of the DOM \u00e9"); }),
            L"Error -2147467259 (Text of the DOM \u00e9) in procedure p of Module M");
}

TEST(Trap, ReportsAFailedAllocationAsOutOfMemory) {
  EXPECT_EQ(reportOf(inModule(L"p", L"M"), [] { throw std::bad_alloc(); }),
            L"Error 7 (Out of memory) in procedure p of Module M");
}

TEST(Trap, ReportsAnyOtherExceptionAsAnInternalErrorWithItsText) {
  EXPECT_EQ(reportOf(inModule(L"p", L"M"), [] { throw std::runtime_error("a reason"); }),
            L"Error 51 (Internal error: a reason) in procedure p of Module M");
}

TEST(Trap, ReportsAnExceptionWithoutTextAsAnInternalError) {
  EXPECT_EQ(reportOf(inModule(L"p", L"M"), [] { throw 1; }),
            L"Error 51 (Internal error) in procedure p of Module M");
}

TEST(Trap, ReportsNothingWithoutAFailure) {
  const test::FailureRecorder recorder;
  trapped(inModule(L"p", L"M"), [] {});
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST(Trap, ReturnsWhatTheResultHeldWhenItsProcedureFailed) {
  const test::FailureRecorder recorder;
  const auto result = trapped<std::wstring>(inModule(L"p", L"M"), [](std::wstring& held) {
    held = L"so far";
    throw RuntimeFault(5);
  });
  EXPECT_EQ(result, L"so far");
  EXPECT_EQ(trapped<int>(inModule(L"p", L"M"), [](int&) { throw RuntimeFault(5); }), 0);
  EXPECT_EQ(recorder.reports().size(), 2U);
}

TEST(Trap, LetsOnlyTheNearestHandlerReport) {
  const test::FailureRecorder recorder;
  trapped(inModule(L"outer", L"M"),
          [] { trapped(inModule(L"inner", L"M"), [] { throw RuntimeFault(5); }); });
  EXPECT_EQ(recorder.reports(),
            test::Reports{L"Error 5 (Invalid procedure call or argument) in procedure inner of "
                          L"Module M"});
}

TEST(FailureReporting, DropsWhatTheReporterThrows) {
  setFailureReporter([](std::wstring_view) { throw std::runtime_error("reporter"); });
  EXPECT_NO_THROW(trapped(inModule(L"p", L"M"), [] { throw RuntimeFault(5); }));
  setFailureReporter([](std::wstring_view) { throw std::bad_alloc(); });
  EXPECT_NO_THROW(trapped(inModule(L"p", L"M"), [] { throw RuntimeFault(5); }));
  setFailureReporter({});
}

TEST(FailureReporting, RunsOnTheThreadOfTheFailure) {
  std::thread::id reportedOn;
  setFailureReporter([&](std::wstring_view) { reportedOn = std::this_thread::get_id(); });
  std::thread::id failedOn;
  std::thread([&] {
    failedOn = std::this_thread::get_id();
    trapped(inModule(L"p", L"M"), [] { throw RuntimeFault(5); });
  }).join();
  setFailureReporter({});
  EXPECT_EQ(reportedOn, failedOn);
}

TEST(FailureReporting, MayReplaceTheReporterWhileItReports) {
  int calls = 0;
  setFailureReporter([&](std::wstring_view) {
    ++calls;
    setFailureReporter([&](std::wstring_view) { calls += 10; });
  });
  trapped(inModule(L"p", L"M"), [] { throw RuntimeFault(5); });
  trapped(inModule(L"p", L"M"), [] { throw RuntimeFault(5); });
  setFailureReporter({});
  EXPECT_EQ(calls, 11);
}

#ifndef _WIN32
TEST(FailureReporting, GoesToStandardErrorWithoutAReporter) {
  testing::internal::CaptureStderr();
  trapped(inModule(L"p", L"M"), [] { throw RuntimeFault(13); });
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Error 13 (Type mismatch) in procedure p of Module M\n");
}
#endif

}  // namespace
}  // namespace ktpnaips
