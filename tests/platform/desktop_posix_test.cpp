#include <ktpnaips/platform/desktop.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/failing_allocation.h"

namespace ktpnaips {
namespace {

constexpr const wchar_t* message = L"a message that is too long to be stored in place: \u00e9";

TEST(Message, IsALineOnStandardError) {
  testing::internal::CaptureStderr();
  desktop::showMessage(message);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "a message that is too long to be stored in place: \xC3\xA9\n");
}

TEST(Message, HasAQuestionMarkForWhatIsNoAsciiWhenMemoryEnds) {
  testing::internal::CaptureStderr();
  {
    const test::FailingAllocation failing;
    desktop::showMessage(message);
    EXPECT_TRUE(failing.hasFailed());
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "a message that is too long to be stored in place: ?\n");
}

}  // namespace
}  // namespace ktpnaips
