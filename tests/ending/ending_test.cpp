#include <ktpnaips/platform/program.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "tests/support/data_folder.h"

namespace {

using namespace std::chrono_literals;

#ifdef _WIN32
constexpr int times = 5;  // a start takes a second through Wine
#else
constexpr int times = 40;
#endif

/// Runs the program that ends in that way.
class EndOfAProgram : public testing::Test {
 protected:
  bool succeeds(const std::string& how) {
    return ktpnaips::program::run(KTP_ENDING_PROGRAM, {how, folder_.path().string()}, "", 2min);
  }
  [[nodiscard]] bool leavesNothing() const { return std::filesystem::is_empty(folder_.path()); }

 private:
  ktpnaips::test::ScratchFolder folder_;
};

TEST_F(EndOfAProgram, IsQuietWhileThreadsAreAtWork) {
  for (int i = 0; i < times; ++i) {
    ASSERT_TRUE(succeeds("threads-at-work"));
    ASSERT_TRUE(leavesNothing());
  }
}

TEST_F(EndOfAProgram, RemovesTheFilesOfThreadsThatAreStillThere) {
  EXPECT_TRUE(succeeds("thread"));
  EXPECT_TRUE(leavesNothing());
}

#ifndef _WIN32
TEST_F(EndOfAProgram, LeavesTheFilesOfTheOneThatForkedIt) {
  EXPECT_TRUE(succeeds("fork"));
  EXPECT_TRUE(leavesNothing());
}

TEST_F(EndOfAProgram, IsReachedWhateverAThreadDidWhenItWasForked) {
  EXPECT_TRUE(succeeds("fork-with-a-thread-at-work"));
  EXPECT_TRUE(leavesNothing());
}
#endif

}  // namespace
