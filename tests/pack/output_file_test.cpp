#include "cli/pack/output_file.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "cli/usage_error.h"

namespace {

namespace fs = std::filesystem;
using cli::pack::OutputFile;

class OutputFiles : public testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() /
              ("output-file-" + std::to_string(reinterpret_cast<std::uintptr_t>(this)));
    fs::create_directory(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  [[nodiscard]] std::string file() const { return (folder_ / "pack.html").string(); }
  void write(const std::string& content) const { std::ofstream(file()) << content; }
  [[nodiscard]] std::string content() const {
    std::ifstream stream(file());
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  [[nodiscard]] std::ptrdiff_t filesThere() const {
    return std::distance(fs::directory_iterator(folder_), fs::directory_iterator());
  }

  fs::path folder_;
};

TEST_F(OutputFiles, AreThereOnlyWhenTheyAreWhole) {
  OutputFile output(file(), false);
  output.write("new");
  EXPECT_FALSE(fs::exists(file()));
  output.finish();
  EXPECT_EQ(content(), "new");
  EXPECT_EQ(filesThere(), 1);
}

TEST_F(OutputFiles, AreNotReplacedUnlessToldTo) {
  write("old");
  EXPECT_THROW(OutputFile(file(), false), cli::UsageError);
  EXPECT_EQ(content(), "old");
  EXPECT_EQ(filesThere(), 1);
}

TEST_F(OutputFiles, TheOldOneStaysUntilTheNewOneIsWhole) {
  write("old");
  OutputFile output(file(), true);
  EXPECT_TRUE(output.replaces());
  output.write("new");
  EXPECT_EQ(content(), "old");
  output.finish();
  EXPECT_EQ(content(), "new");
}

TEST_F(OutputFiles, NothingIsLeftOfOneThatIsNotFinished) {
  write("old");
  { OutputFile(file(), true).write("half"); }
  EXPECT_EQ(content(), "old");
  EXPECT_EQ(filesThere(), 1);
}

TEST_F(OutputFiles, TwoAtOnceDoNotDisturbEachOther) {
  OutputFile first(file(), false);
  OutputFile second(file(), false);
  EXPECT_NE(first.partial(), second.partial());
  first.write("first");
  second.write("second");
  first.finish();
  EXPECT_EQ(content(), "first");
  EXPECT_THROW(second.finish(), std::runtime_error);
  EXPECT_EQ(content(), "first");
}

TEST_F(OutputFiles, ReplaceWhatAppearedMeanwhileWhenToldTo) {
  OutputFile output(file(), true);
  output.write("new");
  write("meanwhile");
  output.finish();
  EXPECT_EQ(content(), "new");
  EXPECT_EQ(filesThere(), 1);
}

TEST_F(OutputFiles, AreWrittenThroughNoLinkThatWasPlanted) {
  write("old");
  fs::create_hard_link(file(), file() + ".1.part");
  OutputFile output(file(), true);
  EXPECT_NE(output.partial(), file() + ".1.part");
  output.write("new");
  EXPECT_EQ(content(), "old");
}

TEST_F(OutputFiles, AFolderThatIsMissingOrInTheWayIsRefused) {
  EXPECT_THROW(OutputFile((folder_ / "none" / "pack.html").string(), false), cli::UsageError);
  EXPECT_THROW(OutputFile(folder_.string(), true), cli::UsageError);
}

}  // namespace
