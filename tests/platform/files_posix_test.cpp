#include <ktpnaips/platform/files.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "tests/support/data_folder.h"
#include "tests/support/fault.h"
#include "tests/support/scoped_environment.h"

namespace ktpnaips {
namespace {

namespace fs = std::filesystem;

TEST(TemporaryFileOnPosix, CanBeReadByItsOwnerOnly) {
  const fs::path file = files::createTemporary(L"KTP");
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  fs::remove(file);
}

TEST(TemporaryFileOnPosix, StandsInTheFolderThatTmpdirNames) {
  const test::ScratchFolder scratch;
  for (const std::string& folder : {scratch.path().string(), scratch.path().string() + "//"}) {
    const test::ScopedEnvironment variable("TMPDIR", folder);
    const fs::path file = files::createTemporary(L"KTP");
    EXPECT_EQ(file.parent_path(), scratch.path());
    EXPECT_TRUE(fs::exists(file));
  }
}

TEST(TemporaryFileOnPosix, StandsInTmpWithoutAFullPathInTmpdir) {
  for (const auto& value : {std::optional<std::string>(), std::optional<std::string>(""),
                            std::optional<std::string>(".")}) {
    const test::ScopedEnvironment variable("TMPDIR", value);
    const fs::path file = files::createTemporary(L"KTP");
    EXPECT_EQ(file.parent_path(), "/tmp");
    fs::remove(file);
  }
}

TEST(TemporaryFileOnPosix, IsAnEmptyTextWhereNoneCanBeMade) {
  const test::ScratchFolder scratch;
  const test::ScopedEnvironment variable("TMPDIR", (scratch.path() / "none").string());
  EXPECT_EQ(files::createTemporary(L"KTP"), L"");
}

TEST(TemporaryFileOnPosix, IsAnEmptyTextWhereTheFoldersPathHas512CharactersOrMore) {
  const test::ScratchFolder scratch;
  // The path that counts ends in a separator.
  const auto folderOfLength = [&](std::size_t length) {
    std::string path = scratch.path().string();
    while (path.size() < length) {
      const std::size_t missing = length - path.size() - 1;
      path += '/' + std::string(missing > 200 ? 150 : missing, 'f');
    }
    EXPECT_EQ(path.size(), length);
    fs::create_directories(path);
    return path;
  };
  const std::string longest = folderOfLength(510);
  {
    const test::ScopedEnvironment variable("TMPDIR", longest);
    EXPECT_NE(files::createTemporary(L"KTP"), L"");
  }
  const test::ScopedEnvironment variable("TMPDIR", folderOfLength(511));
  EXPECT_EQ(files::createTemporary(L"KTP"), L"");
}

TEST(FolderOfApplicationDataOnPosix, IsTheOneThatXdgDataHomeNames) {
  const test::ScopedEnvironment variable("XDG_DATA_HOME", "/some/folder/");
  EXPECT_EQ(files::applicationDataFolder(), L"/some/folder");
}

TEST(FolderOfApplicationDataOnPosix, IsInTheHomeFolderOtherwise) {
  const test::ScopedEnvironment home("HOME", "/home/somebody");
  for (const auto& value : {std::optional<std::string>(), std::optional<std::string>(""),
                            std::optional<std::string>("relative/folder")}) {
    const test::ScopedEnvironment variable("XDG_DATA_HOME", value);
    EXPECT_EQ(files::applicationDataFolder(), L"/home/somebody/.local/share");
  }
}

TEST(FilesOnPosix, HavePlainNamesWhetherOrNotWideCharactersHaveASign) {
  for (const std::uint32_t code : {0x110000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU})
    EXPECT_TRUE(files::isPlainName(std::wstring(1, static_cast<wchar_t>(code)))) << code;
}

TEST(FilesOnPosix, AreVisibleAsLinksThatLeadNowhere) {
  const test::ScratchFolder scratch;
  fs::create_symlink(scratch.path() / "none", scratch.path() / "link");
  EXPECT_TRUE(files::isVisible((scratch.path() / "link").wstring()));
  EXPECT_FALSE(files::exists((scratch.path() / "link").wstring()));
}

TEST(FilesOnPosix, AreNeverMadeThroughALink) {
  const test::ScratchFolder scratch;
  fs::create_symlink(scratch.path() / "target", scratch.path() / "link");
  const std::wstring link = (scratch.path() / "link").wstring();
  EXPECT_FALSE(files::write(link, files::Create::exclusively, "x"));
  EXPECT_NE(test::faultOf([&] { files::write(link, files::Create::orTruncate, "x"); }), 0);
  EXPECT_FALSE(fs::exists(scratch.path() / "target"));
}

/// Lets no file of this process grow beyond a size, until the end of the scope.
class SmallFiles {
 public:
  explicit SmallFiles(rlim_t bytes) : signalBefore_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallFiles() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signalBefore_);
  }
  SmallFiles(const SmallFiles&) = delete;
  SmallFiles& operator=(const SmallFiles&) = delete;

 private:
  void (*signalBefore_)(int);
  rlimit before_{};
};

TEST(FilesOnPosix, FaultAndDisappearWhenTheyDoNotFit) {
  const test::ScratchFolder scratch;
  const fs::path file = scratch.path() / "file";
  std::int32_t thrown = 0;
  {
    const SmallFiles limit(1000);
    thrown = test::faultOf(
        [&] { files::write(file.wstring(), files::Create::exclusively, std::string(5000, 'x')); });
  }
  EXPECT_EQ(thrown, fault::diskFull);
  EXPECT_FALSE(fs::exists(file));
}

}  // namespace
}  // namespace ktpnaips
