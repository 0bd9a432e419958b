#include "simulator/state_folder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tests/support/scoped_environment.h"

namespace sim {
namespace {

using ktpnaips::test::ScopedEnvironment;

TEST(StateFolder, IsWhereXdgStateHomeSays) {
  const ScopedEnvironment state("XDG_STATE_HOME", "/some/folder");
  EXPECT_EQ(defaultStateFolder(), "/some/folder/naips-simulator");
}

TEST(StateFolder, IsInTheHomeFolderOtherwise) {
  const ScopedEnvironment state("XDG_STATE_HOME", "relative");
  const ScopedEnvironment home("HOME", "/home/somebody");
  EXPECT_EQ(defaultStateFolder(), "/home/somebody/.local/state/naips-simulator");
}

TEST(StateFolder, IsInTmpWithoutAFullPathToHome) {
  const ScopedEnvironment state("XDG_STATE_HOME", std::nullopt);
  for (const auto& value : {std::optional<std::string>(), std::optional<std::string>(""),
                            std::optional<std::string>("relative")}) {
    const ScopedEnvironment home("HOME", value);
    EXPECT_EQ(defaultStateFolder(), "/tmp/.local/state/naips-simulator");
  }
}

}  // namespace
}  // namespace sim
