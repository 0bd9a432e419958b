#include <ktpnaips/briefing/briefing_response.h>
#include <ktpnaips/briefing/temp_files.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/data_folder.h"
#include "tests/support/fault.h"
#include "tests/support/scoped_environment.h"
#include "tests/support/soap.h"
#include "tests/torture/failing_step.h"

namespace ktpnaips::test {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view victim = "what somebody else wrote";

const std::string oneProduct =
    success("<n:product type=\"PNG\"><n:content>QUJD</n:content></n:product>");

/// A data folder that is there already, and a file elsewhere that nobody may touch.
class Disk : public testing::Test {
 protected:
  Disk() : victim_(elsewhere_.path() / "victim") {
    fs::create_directories(folder_.path());
    putFile(victim_, std::string(victim));
  }
  ~Disk() override { EXPECT_EQ(contentOf(victim_), victim); }

  /// The path that the answer's product is given.
  static std::wstring fileOfProduct() {
    BriefingResponse response;
    load(response, oneProduct);
    return response.Item(1)->File();
  }

  /// The fault of writing a product that was given the path of its first number.
  std::int32_t faultOfWriting() const {
    return faultOf(
        [&] { TempFileManager().writeProduct(L"NAIPS.PNG", folder_.file("NAIPS1.PNG"), "ABC"); });
  }

  DataFolder folder_;
  ScratchFolder elsewhere_;
  fs::path victim_;
};

TEST_F(Disk, ALinkToAFileAtTheNextNameIsNotFollowed) {
  fs::create_symlink(victim_, folder_.path() / "NAIPS1.PNG");
  EXPECT_EQ(fileOfProduct(), folder_.file("NAIPS2.PNG"));
  EXPECT_EQ(contentOf(folder_.path() / "NAIPS2.PNG"), "ABC");
}

TEST_F(Disk, ALinkThatIsPlantedAfterTheNameWasChosenIsNotFollowed) {
  for (const fs::path& target : {victim_, elsewhere_.path() / "nowhere"}) {
    TempFileManager manager;
    const std::wstring chosen = manager.GetUniqueFilename(L"NAIPS.PNG");
    fs::create_symlink(target, chosen);
    const std::wstring written = manager.writeProduct(L"NAIPS.PNG", chosen, "ABC");
    EXPECT_NE(written, chosen);
    EXPECT_EQ(contentOf(written), "ABC");
  }
  EXPECT_FALSE(fs::exists(elsewhere_.path() / "nowhere"));
}

TEST_F(Disk, AFileThatAppearsAfterTheNameWasChosenIsNotOverwritten) {
  TempFileManager manager;
  const std::wstring chosen = manager.GetUniqueFilename(L"NAIPS.PNG");
  putFile(chosen, std::string(victim));
  EXPECT_EQ(manager.writeProduct(L"NAIPS.PNG", chosen, "ABC"), folder_.file("NAIPS2.PNG"));
  EXPECT_EQ(contentOf(chosen), victim);
}

TEST_F(Disk, AFolderOfTheProductsNameIsAFaultAndStays) {
  fs::create_directories(folder_.path() / "NAIPS1.PNG" / "inside");
  EXPECT_EQ(faultOfWriting(), fault::pathFileAccess);
  EXPECT_EQ(folder_.names(), std::vector<std::string>{"NAIPS1.PNG"});
  EXPECT_TRUE(fs::exists(folder_.path() / "NAIPS1.PNG" / "inside"));
}

TEST_F(Disk, AFolderThatIsRemovedMeanwhileIsAFault) {
  TempFileManager manager;
  const std::wstring chosen = manager.GetUniqueFilename(L"NAIPS.PNG");
  fs::remove_all(folder_.path());
  EXPECT_EQ(faultOf([&] { manager.writeProduct(L"NAIPS.PNG", chosen, "ABC"); }),
            fault::pathNotFound);
  EXPECT_FALSE(fs::exists(folder_.path()));
}

TEST_F(Disk, ANameLongerThanTheLimitIsAFault) {
  const std::wstring longName(300, L'n');
  TempFileManager manager;
  EXPECT_EQ(faultOf([&] { manager.writeProduct(longName, folder_.file("") + longName, "ABC"); }),
            fault::pathFileAccess);
  EXPECT_TRUE(folder_.names().empty());
}

TEST_F(Disk, APathLongerThanTheLimitIsAFault) {
  std::string longPath = elsewhere_.path().string();
  while (longPath.size() < 5000) longPath += "/" + std::string(200, 'f');
  const ScopedEnvironment variable("XDG_DATA_HOME", longPath);
  BriefingResponse response;
  EXPECT_EQ(faultOf([&] { load(response, oneProduct); }), fault::pathFileAccess);
  EXPECT_EQ(response.Count(), 1);
  EXPECT_EQ(std::distance(fs::directory_iterator(elsewhere_.path()), {}), 1);
}

/// Makes the call of that function fail with its error that is `way`th.
std::int32_t faultWhen(std::string_view function, int error, const DataFolder& folder) {
  for (long step = 0; step < 100; ++step) {
    for (std::size_t way = 0; way < 6; ++way) {
      std::int32_t thrown = 0;
      {
        const std::wstring path = folder.file("NAIPS1.PNG");
        const FailingStep scope({step, way, false});
        try {
          thrown = faultOf([&] { TempFileManager().writeProduct(L"NAIPS.PNG", path, "ABC"); });
        } catch (const std::bad_alloc&) {
          thrown = fault::outOfMemory;
        }
      }
      EXPECT_TRUE(thrown == 0 || folder.names().empty());
      fs::remove(folder.path() / "NAIPS1.PNG");
      const StepsTaken taken = stepsTaken();
      const bool isIt = taken.hasFailed && taken.at->name == function;
      if (isIt && taken.at->errors.at(way) == error) return thrown;
      if (!taken.hasFailed || taken.at->allocates()) break;
    }
  }
  return -1;
}

TEST_F(Disk, ThatIsFullIsAFaultAndLeavesNothing) {
  EXPECT_EQ(faultWhen("open", ENOSPC, folder_), fault::diskFull);
  EXPECT_EQ(faultWhen("write", ENOSPC, folder_), fault::diskFull);
  EXPECT_EQ(faultWhen("write", EDQUOT, folder_), fault::diskFull);
  EXPECT_EQ(faultWhen("close", ENOSPC, folder_), fault::diskFull);
}

TEST_F(Disk, ThatIsReadOnlyOrRefusesIsAFaultAndLeavesNothing) {
  EXPECT_EQ(faultWhen("open", EROFS, folder_), fault::permissionDenied);
  EXPECT_EQ(faultWhen("open", EACCES, folder_), fault::permissionDenied);
}

TEST_F(Disk, ThatBreaksIsAFaultAndLeavesNothing) {
  EXPECT_EQ(faultWhen("open", EIO, folder_), fault::pathFileAccess);
  EXPECT_EQ(faultWhen("write", EIO, folder_), fault::pathFileAccess);
  EXPECT_EQ(faultWhen("close", EIO, folder_), fault::pathFileAccess);
}

TEST_F(Disk, ThatIsInterruptedOrSlowIsWrittenWhole) {
  EXPECT_EQ(faultWhen("write", EINTR, folder_), 0);
  EXPECT_EQ(faultWhen("write", onlyOneByte, folder_), 0);
}

}  // namespace
}  // namespace ktpnaips::test
