#include <ktpnaips/briefing/briefing_response.h>

#include <gtest/gtest.h>
#include <openssl/evp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "tests/support/data_folder.h"
#include "tests/support/soap.h"

using namespace ktpnaips;

namespace {

constexpr int processCount = 16;
constexpr int briefings = 20;
constexpr int productsEach = 3;

std::string content(int process, int briefing, int product) {
  return "process " + std::to_string(process) + ", briefing " + std::to_string(briefing) +
         ", product " + std::to_string(product) + '\n' + std::string(30'000, 'x');
}

std::string base64(const std::string& text) {
  std::string coded((text.size() + 2) / 3 * 4 + 1, '\0');
  const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
  coded.resize(static_cast<std::size_t>(EVP_EncodeBlock(
      reinterpret_cast<unsigned char*>(coded.data()), bytes, static_cast<int>(text.size()))));
  return coded;
}

/// Decodes briefings; whether each product has a file that holds it.
bool decodesAll(int process) {
  for (int i = 0; i < briefings; ++i) {
    std::string products;
    for (int j = 0; j < productsEach; ++j) {
      products += "<n:product type=\"PNG\"><n:content>" + base64(content(process, i, j)) +
                  "</n:content></n:product>";
    }
    BriefingResponse response;
    test::load(response, test::success("<n:content>NIL</n:content>" + products));
    if (response.Error() || response.Count() != productsEach) return false;
    int j = 0;
    for (const auto& item : response) {
      if (test::contentOf(item->File()) != content(process, i, j++)) return false;
    }
  }
  return true;
}

// A fork is what makes 16 decode at once here; elsewhere threads do (Load, Threads).
TEST(Processes, SixteenDecodeIntoOneDataFolderAndLoseNothing) {
  const test::DataFolder folder;
  std::vector<pid_t> children;
  for (int process = 0; process < processCount; ++process) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      bool isDone = false;
      try {
        isDone = decodesAll(process);
      } catch (const std::exception&) {
        isDone = false;
      }
      ::_exit(isDone ? 0 : 1);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  std::vector<std::string> expected;
  for (int process = 0; process < processCount; ++process) {
    for (int i = 0; i < briefings; ++i) {
      for (int j = 0; j < productsEach; ++j) expected.push_back(content(process, i, j));
    }
  }
  std::vector<std::string> found;
  for (const auto& name : folder.names()) found.push_back(test::contentOf(folder.path() / name));
  std::ranges::sort(expected);
  std::ranges::sort(found);
  EXPECT_TRUE(found == expected) << found.size() << " files";
}

}  // namespace
