#include <ktpnaips/platform/program.h>

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>

#include "tests/support/data_folder.h"

namespace ktpnaips {
namespace {

namespace fs = std::filesystem;

/// Two folders as the search path, until the end of the test.
class ProgramSearch : public testing::Test {
 protected:
  ProgramSearch() {
    fs::create_directory(first);
    fs::create_directory(second);
    before_.resize(GetEnvironmentVariableW(L"PATH", nullptr, 0));
    before_.resize(
        GetEnvironmentVariableW(L"PATH", before_.data(), static_cast<DWORD>(before_.size())));
    SetEnvironmentVariableW(L"PATH", (first.wstring() + L';' + second.wstring()).c_str());
  }
  ~ProgramSearch() override { SetEnvironmentVariableW(L"PATH", before_.c_str()); }

  const test::ScratchFolder folder;
  const fs::path first = folder.path() / "first";
  const fs::path second = folder.path() / "second";

 private:
  std::wstring before_;
};

TEST_F(ProgramSearch, FindsTheFirstOnThePath) {
  test::putFile(second / "viewer.exe");
  EXPECT_TRUE(fs::equivalent(program::find("viewer"), second / "viewer.exe"));
  test::putFile(first / "viewer.exe");
  EXPECT_TRUE(fs::equivalent(program::find("viewer"), first / "viewer.exe"));
  EXPECT_TRUE(fs::equivalent(program::find("viewer.exe"), first / "viewer.exe"));
}

TEST_F(ProgramSearch, PassesOverFolders) {
  fs::create_directory(first / "viewer.exe");
  EXPECT_EQ(program::find("viewer"), fs::path());
}

TEST_F(ProgramSearch, LeavesTheCurrentAndTheSystemFolderOut) {
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  test::putFile(folder.path() / "viewer.exe");
  EXPECT_EQ(program::find("viewer"), fs::path());
  EXPECT_EQ(program::find("cmd"), fs::path());
  fs::current_path(before);
}

}  // namespace
}  // namespace ktpnaips
