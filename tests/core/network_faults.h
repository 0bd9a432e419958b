#pragma once

#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/network_faults.h"

namespace ktpnaips::test {

inline std::string nameOfFault(const testing::TestParamInfo<NetworkFault>& each) {
  return each.param.name;
}

inline bool isSeen(const SubmitOutcome& outcome, const Seen& seen) {
  if (outcome.isError != seen.isError) return false;
  return !seen.isError ||
         (outcome.errorText.starts_with(L"SOAP Fault: Unrecognised response.  Details below.\r\n" +
                                        seen.start) &&
          outcome.errorText.find(seen.part) != std::wstring::npos &&
          outcome.errorText.find(L"\r\n+-+-+-+\r\nIn response to request:\r\n\r\n<") !=
              std::wstring::npos);
}

/// The submit came to one of these, and to no failure report.
inline void expectSeen(const SubmitOutcome& outcome, const std::vector<Seen>& oneOf) {
  EXPECT_TRUE(outcome.reports.empty()) << text::toUtf8(outcome.reports.front());
  EXPECT_TRUE(std::any_of(oneOf.begin(), oneOf.end(), [&](const Seen& seen) {
    return isSeen(outcome, seen);
  })) << (outcome.isError ? text::toUtf8(outcome.errorText.substr(0, 1000)) : "No error");
}

}  // namespace ktpnaips::test
