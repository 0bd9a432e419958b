#include <ktpnaips/platform/program.h>

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>

#include "tests/support/data_folder.h"

namespace ktpnaips {
namespace {

namespace fs = std::filesystem;

/// A folder as the whole search path, until the end of the test.
class ProgramSearch : public testing::Test {
 protected:
  ProgramSearch() : before_(GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0') {
    before_.resize(
        GetEnvironmentVariableW(L"PATH", before_.data(), static_cast<DWORD>(before_.size())));
    SetEnvironmentVariableW(L"PATH", folder.path().wstring().c_str());
  }
  ~ProgramSearch() override { SetEnvironmentVariableW(L"PATH", before_.c_str()); }

  const test::ScratchFolder folder;

 private:
  std::wstring before_;
};

TEST_F(ProgramSearch, AddsTheExtension) {
  const fs::path program = folder.path() / "viewer.exe";
  test::putFile(program);
  EXPECT_TRUE(fs::equivalent(program::find("viewer"), program));
  EXPECT_TRUE(fs::equivalent(program::find("viewer.exe"), program));
}

TEST_F(ProgramSearch, PassesOverFolders) {
  fs::create_directory(folder.path() / "viewer.exe");
  EXPECT_EQ(program::find("viewer"), fs::path());
}

TEST_F(ProgramSearch, LeavesTheCurrentAndTheSystemFolderOut) {
  const test::ScratchFolder current;
  const fs::path before = fs::current_path();
  fs::current_path(current.path());
  test::putFile(current.path() / "viewer.exe");
  EXPECT_EQ(program::find("viewer"), fs::path());
  EXPECT_EQ(program::find("cmd"), fs::path());
  fs::current_path(before);
}

}  // namespace
}  // namespace ktpnaips
