#include <ktpnaips/briefing/free_paths.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/data_folder.h"

namespace ktpnaips {
namespace {

class FreePath : public testing::Test {
 protected:
  test::DataFolder folder;
  FreePaths paths;
};

TEST_F(FreePath, IsInTheDataFolderWhichIsMadeOnFirstUse) {
  EXPECT_FALSE(std::filesystem::exists(folder.path()));
  const std::wstring name = paths.folder();
  EXPECT_TRUE(std::filesystem::is_directory(folder.path()));
  EXPECT_EQ(name, folder.file(""));
  EXPECT_EQ(paths.choose(L"NAIPS.PNG"), name + L"NAIPS1.PNG");
}

TEST_F(FreePath, HasANumberBeforeTheLastPoint) {
  EXPECT_EQ(paths.choose(L"NAIPS.gif"), folder.file("NAIPS1.gif"));
  EXPECT_EQ(paths.choose(L"report"), folder.file("report1"));
  EXPECT_EQ(paths.choose(L"a.b.gif"), folder.file("a.b1.gif"));
  EXPECT_EQ(paths.choose(L"NAIPS."), folder.file("NAIPS1."));
}

TEST_F(FreePath, StaysTheSameUntilAFileStandsThere) {
  EXPECT_EQ(paths.choose(L"NAIPS.PNG"), folder.file("NAIPS1.PNG"));
  EXPECT_EQ(paths.choose(L"NAIPS.PNG"), folder.file("NAIPS1.PNG"));
  EXPECT_EQ(folder.names(), std::vector<std::string>{});
  test::putFile(folder.path() / "NAIPS1.PNG");
  EXPECT_EQ(paths.choose(L"NAIPS.PNG"), folder.file("NAIPS2.PNG"));
  EXPECT_EQ(paths.choose(L"NAIPS.JPG"), folder.file("NAIPS1.JPG"));
}

TEST_F(FreePath, HasTheFirstNumberThatNoFileHas) {
  (void)paths.folder();
  for (const char* name : {"NAIPS1.PNG", "NAIPS2.PNG", "NAIPS4.PNG", "NAIPS10.PNG"}) {
    test::putFile(folder.path() / name);
  }
  FreePaths later;
  EXPECT_EQ(later.choose(L"NAIPS.PNG"), folder.file("NAIPS3.PNG"));
  test::putFile(folder.path() / "NAIPS3.PNG");
  EXPECT_EQ(later.choose(L"NAIPS.PNG"), folder.file("NAIPS5.PNG"));
}

TEST_F(FreePath, IsNotTakenByOtherWaysToWriteANumber) {
  (void)paths.folder();
  for (const char* name :
       {"NAIPS.PNG", "NAIPS01.PNG", "NAIPS+1.PNG", "NAIPS1.PNG.PNG", "XNAIPS1.PNG", "NAIPS1.PN"}) {
    test::putFile(folder.path() / name);
  }
  FreePaths later;
  EXPECT_EQ(later.choose(L"NAIPS.PNG"), folder.file("NAIPS1.PNG"));
}

TEST_F(FreePath, DoesNotSeeFolders) {
  (void)paths.folder();
  std::filesystem::create_directory(folder.path() / "NAIPS1.PNG");
  test::putFile(folder.path() / "NAIPS2.PNG");
  EXPECT_EQ(FreePaths().choose(L"NAIPS.PNG"), folder.file("NAIPS1.PNG"));
}

TEST_F(FreePath, IsAnotherAfterARefusedOne) {
  const std::wstring first = paths.choose(L"NAIPS.PNG");
  EXPECT_EQ(paths.chooseAfter(L"NAIPS.PNG", first), folder.file("NAIPS2.PNG"));
}

TEST_F(FreePath, IsFoundAmongManyFiles) {
  (void)paths.folder();
  for (int number = 1; number <= 2000; ++number) {
    test::putFile(folder.path() / ("NAIPS" + std::to_string(number) + ".PNG"));
  }
  FreePaths later;
  EXPECT_EQ(later.choose(L"NAIPS.PNG"), folder.file("NAIPS2001.PNG"));
  test::putFile(folder.path() / "NAIPS2001.PNG");
  EXPECT_EQ(later.choose(L"NAIPS.PNG"), folder.file("NAIPS2002.PNG"));
}

TEST_F(FreePath, IsNotThrownOffByHugeNumbers) {
  (void)paths.folder();
  for (const char* name : {"NAIPS99999999999999999999999999.PNG", "NAIPS4294967297.PNG",
                           "NAIPS18446744073709551617.PNG", "NAIPS0.PNG"}) {
    test::putFile(folder.path() / name);
  }
  EXPECT_EQ(FreePaths().choose(L"NAIPS.PNG"), folder.file("NAIPS1.PNG"));
}

}  // namespace
}  // namespace ktpnaips
