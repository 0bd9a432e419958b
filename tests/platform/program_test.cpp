#include <ktpnaips/platform/program.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/data_folder.h"

namespace ktpnaips {
namespace {

using namespace std::chrono_literals;

const std::filesystem::path called = KTP_CALLED_PROGRAM;

TEST(Program, GetsItsArgumentsAsTheyStand) {
  const test::ScratchFolder folder;
  const std::filesystem::path file = folder.path() / "arguments";
  const std::vector<std::string> given{"",
                                       "two words",
                                       "--x=\"quoted\"",
                                       "\"",
                                       "\\",
                                       "a\\\\b",
                                       "ends in \\",
                                       "\\\"",
                                       "\\\\\"",
                                       "\\\\server\\share\\",
                                       "%PATH% $PATH",
                                       "* ?",
                                       "\xc3\xa9\xe2\x82\xac",
                                       "'single'",
                                       "tab\there"};
  std::vector<std::string> arguments{file.string()};
  arguments.insert(arguments.end(), given.begin(), given.end());
  EXPECT_TRUE(program::run(called, arguments, "", 1min));

  std::string expected;
  for (const std::string& each : given) expected += each + '\n';
  EXPECT_EQ(test::contentOf(file), expected);
}

TEST(Program, SucceedsWithStatusZeroAlone) {
  EXPECT_TRUE(program::run(called, {"status", "0"}, "", 1min));
  EXPECT_FALSE(program::run(called, {"status", "1"}, "", 1min));
  EXPECT_FALSE(program::run(called, {"status", "255"}, "", 1min));
}

TEST(Program, HasNothingToRead) {
  EXPECT_TRUE(program::run(called, {"read"}, "", 1min));
}

TEST(Program, GetsTheEnvironmentButWhatIsWithheld) {
  EXPECT_TRUE(program::run(called, {"has", "PATH"}, "", 1min));
  EXPECT_FALSE(program::run(called, {"has", "PATH"}, "PATH", 1min));
  EXPECT_TRUE(program::run(called, {"has", "PATH"}, "PAT", 1min));
}

TEST(Program, IsEndedAtItsTimeLimit) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(program::run(called, {"wait"}, "", 1s));
  const auto taken = std::chrono::steady_clock::now() - start;
  EXPECT_GE(taken, 1s);
  EXPECT_LT(taken, 30s);
}

TEST(Program, ThatIsNotThereDoesNotSucceed) {
  const test::ScratchFolder folder;
  EXPECT_FALSE(program::run(folder.path() / "none", {}, "", 1min));
}

}  // namespace
}  // namespace ktpnaips
