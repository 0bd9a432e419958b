#include <ktpnaips/platform/program.h>

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/data_folder.h"
#include "tests/support/scoped_environment.h"

namespace ktpnaips {
namespace {

namespace fs = std::filesystem;

/// Two folders on the search path, the empty entry before and between them.
class ProgramSearch : public testing::Test {
 protected:
  ProgramSearch() {
    fs::create_directory(first);
    fs::create_directory(second);
  }

  static void putProgram(const fs::path& file) {
    test::putFile(file);
    fs::permissions(file, fs::perms::owner_exec, fs::perm_options::add);
  }

  const test::ScratchFolder folder;
  const fs::path first = folder.path() / "first";
  const fs::path second = folder.path() / "second";
  const test::ScopedEnvironment path{"PATH", ":" + first.string() + "::" + second.string()};
};

TEST_F(ProgramSearch, FindsTheFirstOnThePath) {
  putProgram(second / "viewer");
  EXPECT_EQ(program::find("viewer"), second / "viewer");
  putProgram(first / "viewer");
  EXPECT_EQ(program::find("viewer"), first / "viewer");
}

TEST_F(ProgramSearch, PassesOverWhatCannotBeRun) {
  fs::create_directory(first / "viewer");
  test::putFile(second / "viewer");
  EXPECT_EQ(program::find("viewer"), fs::path());
}

TEST_F(ProgramSearch, LeavesTheCurrentFolderOut) {
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  putProgram(folder.path() / "viewer");
  EXPECT_EQ(program::find("viewer"), fs::path());
  fs::current_path(before);
}

TEST_F(ProgramSearch, FindsNothingWithoutAPath) {
  const test::ScopedEnvironment none("PATH", std::nullopt);
  EXPECT_EQ(program::find("sh"), fs::path());
}

}  // namespace
}  // namespace ktpnaips
