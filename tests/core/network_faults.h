#pragma once

#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/network_faults.h"

namespace ktpnaips::test {

inline std::string nameOfFault(const testing::TestParamInfo<NetworkFault>& each) {
  return each.param.name;
}

/// The submit came to this, and to no failure report.
inline void expectSeen(const SubmitOutcome& outcome, const Seen& seen) {
  const std::string text = text::toUtf8(outcome.errorText.substr(0, 1000));
  EXPECT_EQ(outcome.isError, seen.isError) << text;
  EXPECT_TRUE(outcome.reports.empty()) << text::toUtf8(outcome.reports.front());
  if (!seen.isError) return;
  EXPECT_TRUE(outcome.errorText.starts_with(
      L"SOAP Fault: Unrecognised response.  Details below.\r\n" + seen.start))
      << text;
  EXPECT_NE(outcome.errorText.find(seen.part), std::wstring::npos) << text;
  EXPECT_NE(outcome.errorText.find(L"\r\n+-+-+-+\r\nIn response to request:\r\n\r\n<"),
            std::wstring::npos)
      << text;
}

}  // namespace ktpnaips::test
