#include <ktpnaips/platform/files.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "tests/support/data_folder.h"
#include "tests/support/fault.h"
#include "tests/support/ordinary_user_posix.h"
#include "tests/support/scoped_environment.h"

namespace ktpnaips {
namespace {

namespace fs = std::filesystem;
using fs::perms;

/// An ordinary user's folder, whose rights are taken and given back.
class MissingRights : public testing::Test {
 protected:
  ~MissingRights() override { fs::permissions(folder_.path(), perms::owner_all); }

  void allow(perms rights) { fs::permissions(folder_.path(), rights); }
  [[nodiscard]] fs::path at(const std::string& name) const { return folder_.path() / name; }

 private:
  test::OrdinaryUser user_;
  test::ScratchFolder folder_;
};

constexpr perms readOnly = perms::owner_read | perms::owner_exec;

TEST_F(MissingRights, ToAFolderAreFault70WhenAFileIsMadeThere) {
  allow(readOnly);
  const auto write = [&] { files::write(at("a").wstring(), files::Create::exclusively, "new"); };
  EXPECT_EQ(test::faultOf(write), fault::permissionDenied);
  EXPECT_FALSE(fs::exists(at("a")));
}

TEST_F(MissingRights, ToAFileAreFault70WhenItIsWrittenAnew) {
  test::putFile(at("a"), "old");
  fs::permissions(at("a"), perms::owner_read);
  const auto write = [&] { files::write(at("a").wstring(), files::Create::orTruncate, "new"); };
  EXPECT_EQ(test::faultOf(write), fault::permissionDenied);
  EXPECT_EQ(test::contentOf(at("a")), "old");
}

TEST_F(MissingRights, ToAFolderAboveAreFault70) {
  fs::create_directories(at("b"));
  allow(perms::none);
  const auto write = [&] { files::write(at("b/a").wstring(), files::Create::exclusively, "new"); };
  EXPECT_EQ(test::faultOf(write), fault::permissionDenied);
}

TEST_F(MissingRights, ToMakeAFolderShowWhenAFileIsMadeInIt) {
  allow(readOnly);
  files::createFolders(at("b").wstring());
  const auto write = [&] { files::write(at("b/a").wstring(), files::Create::exclusively, "new"); };
  EXPECT_EQ(test::faultOf(write), fault::pathNotFound);
}

TEST_F(MissingRights, ToTheTemporaryFolderGiveNoTemporaryFile) {
  allow(readOnly);
  const test::ScopedEnvironment variable("TMPDIR", at("").string());
  EXPECT_EQ(files::createTemporary(L"KTP"), L"");
}

TEST_F(MissingRights, ToReadAFolderShowNothingOfIt) {
  test::putFile(at("a"));
  allow(perms::owner_write | perms::owner_exec);
  files::forEachVisible(at("").wstring(), [](std::wstring_view) { FAIL(); });
  EXPECT_TRUE(files::exists(at("a").wstring()));
}

TEST_F(MissingRights, ToRemoveAFileLeaveIt) {
  test::putFile(at("a"));
  allow(readOnly);
  files::remove(at("a").wstring());
  EXPECT_TRUE(fs::exists(at("a")));
}

}  // namespace
}  // namespace ktpnaips
