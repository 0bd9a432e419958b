#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/briefing/temp_files.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>

#include "tests/support/data_folder.h"
#include "tests/support/fault.h"
#include "tests/support/ordinary_user_posix.h"
#include "tests/support/scoped_environment.h"
#include "tests/support/soap.h"

namespace ktpnaips {
namespace {

namespace fs = std::filesystem;

const std::string oneProduct =
    test::success("<n:product type=\"PNG\"><n:content>QUJD</n:content></n:product>");

TEST(DataFolderOnPosix, IsMadeWithItsMissingParents) {
  const test::ScratchFolder scratch;
  const fs::path data = scratch.path() / "a" / "b";
  const test::ScopedEnvironment variable("XDG_DATA_HOME", data.string());
  TempFileManager manager;
  EXPECT_EQ(manager.GetUniqueFilename(L"x.y"), (data / "VelmoraSoftware" / "x1.y").wstring());
  EXPECT_TRUE(fs::is_directory(data / "VelmoraSoftware"));
}

TEST(DataFolderOnPosix, ThatCannotBeMadeShowsAsAFaultWhenAProductIsWritten) {
  const test::ScratchFolder scratch;
  test::putFile(scratch.path() / "file");
  const test::ScopedEnvironment variable("XDG_DATA_HOME", (scratch.path() / "file").string());
  BriefingResponse response;
  EXPECT_EQ(test::faultOf([&] { test::load(response, oneProduct); }), fault::pathNotFound);
  EXPECT_EQ(response.Count(), 1);
}

TEST(DataFolderOnPosix, ThatMayNotBeWrittenToIsFault70WhenAProductIsWritten) {
  const test::OrdinaryUser user;
  const test::DataFolder folder;
  fs::create_directories(folder.path());
  fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
  BriefingResponse response;
  EXPECT_EQ(test::faultOf([&] { test::load(response, oneProduct); }), fault::permissionDenied);
  EXPECT_EQ(response.Count(), 1);
  fs::permissions(folder.path(), fs::perms::owner_all);
  EXPECT_TRUE(folder.names().empty());
}

TEST(DataFolderOnPosix, IsNotLeftThroughALinkInPlaceOfAProduct) {
  const test::DataFolder folder;
  const test::ScratchFolder elsewhere;
  fs::create_directories(folder.path());
  fs::create_symlink(elsewhere.path() / "target", folder.path() / "NAIPS1.PNG");
  BriefingResponse response;
  test::load(response, oneProduct);
  EXPECT_EQ(response.Item(1)->File(), folder.file("NAIPS2.PNG"));
  EXPECT_TRUE(fs::is_empty(elsewhere.path()));
}

}  // namespace
}  // namespace ktpnaips
