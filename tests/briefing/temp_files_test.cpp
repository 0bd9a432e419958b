#include <ktpnaips/briefing/temp_files.h>
#include <ktpnaips/platform/files.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/data_folder.h"
#include "tests/support/failing_allocation.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/fault.h"

namespace ktpnaips {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

TEST(TemporaryFile, IsNewEmptyAndInTheSystemsTemporaryFolder) {
  TempFileManager manager;
  const fs::path first = manager.CreateTempFile(L"KTP");
  const fs::path second = manager.CreateTempFile(L"KTP");
  EXPECT_NE(first, second);
  for (const auto& file : {first, second}) {
    EXPECT_TRUE(fs::is_regular_file(file));
    EXPECT_EQ(fs::file_size(file), 0U);
    EXPECT_EQ(fs::canonical(file.parent_path()), fs::canonical(fs::temp_directory_path()));
    EXPECT_EQ(file.filename().string().substr(0, 3), "KTP");
    EXPECT_EQ(file.extension(), ".tmp");
  }
}

TEST(TemporaryFile, IsDeletedWhenItsManagerIsReleased) {
  std::optional<TempFileManager> manager(std::in_place);
  const fs::path first = manager->CreateTempFile(L"KTP");
  const fs::path second = manager->CreateTempFile(L"KTP");
  test::putFile(second, "content");
  manager.reset();
  EXPECT_FALSE(fs::exists(first));
  EXPECT_FALSE(fs::exists(second));
}

TEST(TemporaryFile, IsSkippedAtCleanUpWhenTheHostHasDeletedIt) {
  const test::FailureRecorder recorder;
  std::optional<TempFileManager> manager(std::in_place);
  const fs::path gone = manager->CreateTempFile(L"KTP");
  const fs::path left = manager->CreateTempFile(L"KTP");
  fs::remove(gone);
  manager.reset();
  EXPECT_FALSE(fs::exists(left));
  EXPECT_EQ(recorder.reports(), test::Reports{});
}

TEST(TemporaryFile, IsSkippedAtCleanUpWhenAFolderHasReplacedIt) {
  const test::FailureRecorder recorder;
  std::optional<TempFileManager> manager(std::in_place);
  const fs::path replaced = manager->CreateTempFile(L"KTP");
  const fs::path left = manager->CreateTempFile(L"KTP");
  fs::remove(replaced);
  fs::create_directory(replaced);
  manager.reset();
  EXPECT_TRUE(fs::is_directory(replaced));
  EXPECT_FALSE(fs::exists(left));
  EXPECT_EQ(recorder.reports(), test::Reports{});
  fs::remove(replaced);
}

TEST(TemporaryFile, IsDeletedWhenItsManagerIsReleasedWithoutMemory) {
  std::optional<TempFileManager> manager(std::in_place);
  const fs::path file = manager->CreateTempFile(L"KTP");
  {
    const test::FailingAllocation failing;
    manager.reset();
  }
  EXPECT_FALSE(fs::exists(file));
}

TEST(TemporaryFile, IsAnEmptyTextWithoutMemory) {
  int before = 0;
  for (bool hasFailed = true; hasFailed; ++before) {
    TempFileManager manager;
    std::wstring path = L"none";
    {
      const test::FailingAllocation failing(before);
      EXPECT_NO_THROW(path = manager.CreateTempFile(L"KTP"));
      hasFailed = failing.hasFailed();
    }
    EXPECT_EQ(path.empty(), hasFailed) << before;
    ASSERT_LT(before, 100);
  }
  EXPECT_GT(before, 1);
}

TEST(TemporaryFile, IsNotMadeAgainWhenItsProductIsWritten) {
  TempFileManager manager;
  const std::wstring file = manager.CreateTempFile(L"KTP");
  manager.writeTemporary(file, "ABC");
  EXPECT_EQ(test::contentOf(file), "ABC");
  fs::remove(file);
  EXPECT_EQ(test::faultOf([&] { manager.writeTemporary(file, "ABC"); }), fault::pathNotFound);
  EXPECT_FALSE(fs::exists(file));
}

TEST(TemporaryFile, OfTheSharedManagerIsDeletedWhenItsThreadEnds) {
  fs::path file;
  std::thread([&] {
    file = sharedTempFiles().CreateTempFile(L"KTP");
    EXPECT_TRUE(fs::exists(file));
  }).join();
  EXPECT_FALSE(file.empty());
  EXPECT_FALSE(fs::exists(file));
}

TEST(SharedManager, IsOneAThread) {
  TempFileManager& own = sharedTempFiles();
  EXPECT_EQ(&own, &sharedTempFiles());
  std::thread([&] { EXPECT_NE(&own, &sharedTempFiles()); }).join();
}

TEST(SharedManager, KeepsTheFilesOfOtherThreadsWhenOneEnds) {
  fs::path kept;
  std::thread([&] {
    kept = sharedTempFiles().CreateTempFile(L"KTP");
    fs::path gone;
    std::thread([&] { gone = sharedTempFiles().CreateTempFile(L"KTP"); }).join();
    EXPECT_FALSE(fs::exists(gone));
    EXPECT_TRUE(fs::exists(kept));
  }).join();
  EXPECT_FALSE(fs::exists(kept));
}

class UniqueName : public testing::Test {
 protected:
  test::DataFolder folder;
  TempFileManager manager;
};

TEST_F(UniqueName, IsEmptyForAnEmptyName) {
  EXPECT_EQ(manager.GetUniqueFilename(L""), L"");
}

TEST_F(UniqueName, HasANumberBeforeTheExtension) {
  EXPECT_EQ(manager.GetUniqueFilename(L"NAIPS.gif"), folder.file("NAIPS1.gif"));
}

TEST_F(UniqueName, EndsInItsNumberWithoutAnExtension) {
  EXPECT_EQ(manager.GetUniqueFilename(L"report"), folder.file("report1"));
}

TEST_F(UniqueName, IsSplitAtTheLastPoint) {
  EXPECT_EQ(manager.GetUniqueFilename(L"a.b.gif"), folder.file("a.b1.gif"));
  EXPECT_EQ(manager.GetUniqueFilename(L"NAIPS."), folder.file("NAIPS1."));
  EXPECT_EQ(manager.GetUniqueFilename(L".gif"), folder.file("1.gif"));
}

TEST_F(UniqueName, CreatesTheFolderButNotTheFile) {
  EXPECT_FALSE(fs::exists(folder.path()));
  EXPECT_EQ(manager.GetUniqueFilename(L"x.y"), folder.file("x1.y"));
  EXPECT_TRUE(fs::is_directory(folder.path()));
  EXPECT_EQ(folder.names(), Names{});
  EXPECT_EQ(manager.GetUniqueFilename(L"x.y"), folder.file("x1.y"));
}

TEST_F(UniqueName, TakesTheFirstNumberThatNoFileHas) {
  fs::create_directories(folder.path());
  test::putFile(folder.path() / "x1.y");
  EXPECT_EQ(manager.GetUniqueFilename(L"x.y"), folder.file("x2.y"));
  test::putFile(folder.path() / "x3.y");
  EXPECT_EQ(manager.GetUniqueFilename(L"x.y"), folder.file("x2.y"));
  test::putFile(folder.path() / "x2.y");
  EXPECT_EQ(manager.GetUniqueFilename(L"x.y"), folder.file("x4.y"));
}

TEST_F(UniqueName, WritesItsNumberWithoutLeadingZeros) {
  fs::create_directories(folder.path());
  for (int n = 1; n <= 11; ++n) test::putFile(folder.path() / ("x" + std::to_string(n) + ".y"));
  EXPECT_EQ(manager.GetUniqueFilename(L"x.y"), folder.file("x12.y"));
}

TEST_F(UniqueName, DoesNotCountTheUnnumberedNameAsTaken) {
  fs::create_directories(folder.path());
  test::putFile(folder.path() / "x.y");
  EXPECT_EQ(manager.GetUniqueFilename(L"x.y"), folder.file("x1.y"));
}

TEST_F(UniqueName, DoesNotSeeFolders) {
  fs::create_directories(folder.path() / "x1.y");
  EXPECT_EQ(manager.GetUniqueFilename(L"x.y"), folder.file("x1.y"));
}

TEST_F(UniqueName, IsNotDeletedWithItsManager) {
  fs::path file;
  {
    TempFileManager own;
    file = own.GetUniqueFilename(L"x.y");
    test::putFile(file, "content");
  }
  EXPECT_TRUE(fs::exists(file));
}

class ProductFile : public UniqueName {};

TEST_F(ProductFile, IsWrittenWhereItsNameWasChosen) {
  const std::wstring chosen = manager.GetUniqueFilename(L"x.y");
  EXPECT_EQ(manager.writeProduct(L"x.y", chosen, std::string("a\0b\r\n\xFF", 6)), chosen);
  EXPECT_EQ(test::contentOf(folder.path() / "x1.y"), std::string("a\0b\r\n\xFF", 6));
}

TEST_F(ProductFile, MovesToTheNextFreeNumberWhenAFileHasAppearedMeanwhile) {
  const std::wstring chosen = manager.GetUniqueFilename(L"x.y");
  test::putFile(folder.path() / "x1.y", "theirs");
  test::putFile(folder.path() / "x2.y", "theirs");
  EXPECT_EQ(manager.writeProduct(L"x.y", chosen, "ours"), folder.file("x3.y"));
  EXPECT_EQ(test::contentOf(folder.path() / "x1.y"), "theirs");
  EXPECT_EQ(test::contentOf(folder.path() / "x2.y"), "theirs");
  EXPECT_EQ(test::contentOf(folder.path() / "x3.y"), "ours");
}

TEST_F(ProductFile, FaultsWhereAFolderStands) {
  const std::wstring chosen = manager.GetUniqueFilename(L"x.y");
  fs::create_directories(folder.path() / "x1.y");
  EXPECT_EQ(test::faultOf([&] { manager.writeProduct(L"x.y", chosen, "ours"); }),
            fault::pathFileAccess);
  EXPECT_EQ(folder.names(), Names{"x1.y"});
}

TEST_F(ProductFile, FaultsWhenItsFolderHasGone) {
  const std::wstring chosen = manager.GetUniqueFilename(L"x.y");
  fs::remove_all(folder.path());
  EXPECT_EQ(test::faultOf([&] { manager.writeProduct(L"x.y", chosen, "ours"); }),
            fault::pathNotFound);
}

TEST_F(ProductFile, IsRefusedUnderANameThatWouldLeadOutOfTheFolder) {
  for (const wchar_t* name : {L"../x.y", L"/x.y", L"a/b.y", L"a\\b.y", L"..\\x.y", L"c:x.y"}) {
    const std::wstring chosen = manager.GetUniqueFilename(name);
    EXPECT_EQ(test::faultOf([&] { manager.writeProduct(name, chosen, "ours"); }),
              fault::badFileName);
  }
  EXPECT_EQ(folder.names(), Names{});
}

}  // namespace
}  // namespace ktpnaips
