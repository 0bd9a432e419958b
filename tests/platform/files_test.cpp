#include <ktpnaips/platform/files.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tests/support/data_folder.h"
#include "tests/support/fault.h"

namespace ktpnaips {
namespace {

namespace fs = std::filesystem;

class FilesInAFolder : public testing::Test {
 protected:
  std::wstring at(const std::string& name) const { return (scratch.path() / name).wstring(); }

  test::ScratchFolder scratch;
};

TEST(TemporaryFileOfTheSystem, IsNewAndEmptyUnderItsPrefix) {
  const fs::path first = files::createTemporary(L"KTP");
  const fs::path second = files::createTemporary(L"KTP");
  EXPECT_NE(first, second);
  for (const auto& file : {first, second}) {
    EXPECT_TRUE(file.is_absolute());
    EXPECT_TRUE(fs::is_regular_file(file));
    EXPECT_EQ(fs::file_size(file), 0U);
    EXPECT_EQ(file.filename().string().substr(0, 3), "KTP");
    EXPECT_EQ(file.extension(), ".tmp");
    fs::remove(file);
  }
}

TEST(FolderOfApplicationData, IsAFullPathWithoutASeparatorAtItsEnd) {
  const std::wstring folder = files::applicationDataFolder();
  ASSERT_FALSE(folder.empty());
  EXPECT_TRUE(fs::path(folder).is_absolute());
  EXPECT_NE(folder.back(), files::separator);
}

TEST_F(FilesInAFolder, AreJoinedByThePlatformsSeparator) {
  EXPECT_EQ(files::separator, static_cast<wchar_t>(fs::path::preferred_separator));
}

TEST_F(FilesInAFolder, HaveTheirMissingParentsMade) {
  files::createFolders(at("a/b/c"));
  EXPECT_TRUE(fs::is_directory(scratch.path() / "a" / "b" / "c"));
  files::createFolders(at("a/b/c"));
  files::createFolders(at("d") + files::separator);
  EXPECT_TRUE(fs::is_directory(scratch.path() / "d"));
}

TEST_F(FilesInAFolder, StayWhereAFolderCannotBeMade) {
  test::putFile(scratch.path() / "file", "x");
  EXPECT_NO_THROW(files::createFolders(at("file")));
  EXPECT_NO_THROW(files::createFolders(at("file/below")));
  EXPECT_NO_THROW(files::createFolders(L""));
  EXPECT_EQ(test::contentOf(scratch.path() / "file"), "x");
}

TEST_F(FilesInAFolder, ExistUnlessTheyAreFolders) {
  test::putFile(scratch.path() / "file");
  fs::create_directory(scratch.path() / "folder");
  EXPECT_TRUE(files::exists(scratch.path() / "file"));
  EXPECT_FALSE(files::exists(scratch.path() / "folder"));
  EXPECT_FALSE(files::exists(scratch.path() / "none"));
  EXPECT_FALSE(files::exists({}));
}

TEST_F(FilesInAFolder, AreVisibleUnlessTheyAreFolders) {
  test::putFile(scratch.path() / "file");
  fs::create_directory(scratch.path() / "folder");
  EXPECT_TRUE(files::isVisible(at("file")));
  EXPECT_FALSE(files::isVisible(at("folder")));
  EXPECT_FALSE(files::isVisible(at("none")));
  EXPECT_FALSE(files::isVisible(at("none/below")));
}

TEST_F(FilesInAFolder, AreListedByNameUnlessTheyAreFolders) {
  test::putFile(scratch.path() / "a1.x");
  test::putFile(scratch.path() / u8"\u00e9");
  fs::create_directory(scratch.path() / "folder");
  std::set<std::wstring> names;
  files::forEachVisible(scratch.path().wstring(),
                        [&](std::wstring_view name) { names.emplace(name); });
  EXPECT_EQ(names, (std::set<std::wstring>{L"a1.x", L"\u00e9"}));
  files::forEachVisible(at("none"), [](std::wstring_view) { FAIL(); });
}

TEST_F(FilesInAFolder, HavePlainNames) {
  for (const std::wstring_view name :
       {L"NAIPS1.PNG", L"NAIPS1.", L"a", L"a b.c d", L"..a", L"a..b", L".hidden", L"\u00e9\u4e2d",
        L"CONSOLE", L"COM", L"NULL.x"}) {
    EXPECT_TRUE(files::isPlainName(name));
  }
}

TEST_F(FilesInAFolder, HaveNoNamesThatLeadElsewhere) {
  for (const std::wstring_view name :
       {L"", L".", L"..", L"/", L"\\", L"a/b", L"a\\b", L"../a", L"..\\a", L"/a", L"\\a", L"a/",
        L"c:", L"c:a", L"a:stream", L"NAIPS./../../x"}) {
    EXPECT_FALSE(files::isPlainName(name));
  }
}

TEST_F(FilesInAFolder, HaveNoControlCharactersInTheirNames) {
  EXPECT_FALSE(files::isPlainName(std::wstring_view(L"a\0b", 3)));
  EXPECT_FALSE(files::isPlainName(std::wstring_view(L"\0", 1)));
  for (const wchar_t* name : {L"a\x01", L"\n", L"a\tb", L"a\x1f"}) {
    EXPECT_FALSE(files::isPlainName(name));
  }
}

TEST_F(FilesInAFolder, HaveNoWildcardsOrBracketsInTheirNames) {
  for (const wchar_t* name : {L"a*", L"a?", L"a<b", L"a>b", L"a|b", L"a\"b"}) {
    EXPECT_FALSE(files::isPlainName(name));
  }
}

TEST_F(FilesInAFolder, HaveNoNamesOfDevices) {
  for (const wchar_t* name : {L"CON", L"con", L"PRN", L"AUX", L"NUL", L"nul.txt", L"COM1",
                              L"COM9.x", L"LPT1", L"Lpt9.a.b"}) {
    EXPECT_FALSE(files::isPlainName(name));
  }
}

TEST_F(FilesInAFolder, AreWrittenByteForByte) {
  std::string bytes;
  for (int round = 0; round < 1000; ++round) {
    for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  }
  EXPECT_TRUE(files::write(at("file"), files::Create::exclusively, bytes));
  EXPECT_EQ(test::contentOf(scratch.path() / "file"), bytes);
}

TEST_F(FilesInAFolder, MayBeEmpty) {
  EXPECT_TRUE(files::write(at("file"), files::Create::exclusively, ""));
  EXPECT_EQ(fs::file_size(scratch.path() / "file"), 0U);
}

TEST_F(FilesInAFolder, AreLeftAloneWhenTheyShallBeNew) {
  test::putFile(scratch.path() / "file", "theirs");
  EXPECT_FALSE(files::write(at("file"), files::Create::exclusively, "ours"));
  EXPECT_EQ(test::contentOf(scratch.path() / "file"), "theirs");
}

TEST_F(FilesInAFolder, AreEmptiedFirstWhenTheyMustExist) {
  test::putFile(scratch.path() / "file", "a long text of theirs");
  EXPECT_TRUE(files::write(at("file"), files::Create::never, "ours"));
  EXPECT_EQ(test::contentOf(scratch.path() / "file"), "ours");
  EXPECT_EQ(test::faultOf([&] { files::write(at("new"), files::Create::never, "ours"); }),
            fault::pathNotFound);
  EXPECT_FALSE(fs::exists(scratch.path() / "new"));
}

TEST_F(FilesInAFolder, FaultWhereAFolderHasTheirName) {
  fs::create_directory(scratch.path() / "folder");
  for (const auto how : {files::Create::exclusively, files::Create::never}) {
    EXPECT_EQ(test::faultOf([&] { files::write(at("folder"), how, "x"); }), fault::pathFileAccess);
  }
}

TEST_F(FilesInAFolder, FaultWithoutTheirFolder) {
  for (const auto how : {files::Create::exclusively, files::Create::never}) {
    EXPECT_EQ(test::faultOf([&] { files::write(at("none/file"), how, "x"); }), fault::pathNotFound);
  }
}

TEST_F(FilesInAFolder, CarryAnyCharactersInTheirPaths) {
  const fs::path path = scratch.path() / u8"\u00e9 \u4e2d \U0001F6E9.x";
  const std::wstring wide =
      scratch.path().wstring() + files::separator + L"\u00e9 \u4e2d \U0001F6E9.x";
  EXPECT_TRUE(files::write(wide, files::Create::exclusively, "x"));
  EXPECT_EQ(files::textOf(path), wide);
  EXPECT_TRUE(fs::exists(path));
  EXPECT_TRUE(files::exists(path));
  files::remove(path);
  EXPECT_FALSE(fs::exists(path));
}

TEST_F(FilesInAFolder, AreRemovedIfTheyCanBe) {
  test::putFile(scratch.path() / "file");
  fs::create_directory(scratch.path() / "folder");
  files::remove(scratch.path() / "file");
  files::remove(scratch.path() / "folder");
  files::remove(scratch.path() / "none");
  EXPECT_FALSE(fs::exists(scratch.path() / "file"));
  EXPECT_TRUE(fs::exists(scratch.path() / "folder"));
}

TEST_F(FilesInAFolder, AreMadeByOneThreadAlone) {
  for (int round = 0; round < 50; ++round) {
    const std::wstring path = at("race" + std::to_string(round));
    std::atomic<int> winners{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([&, i] {
        const std::string content(1000, static_cast<char>('a' + i));
        if (files::write(path, files::Create::exclusively, content)) ++winners;
      });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(winners, 1);
    EXPECT_EQ(fs::file_size(fs::path(path)), 1000U);
  }
}

}  // namespace
}  // namespace ktpnaips
