#include <ktpnaips/platform/interruption.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <string>

namespace ktpnaips {
namespace {

class Interruption : public testing::TestWithParam<int> {
 protected:
  Interruption() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};
INSTANTIATE_TEST_SUITE_P(Signals, Interruption, testing::Values(SIGINT, SIGTERM),
                         [](const auto& each) {
                           return std::string(each.param == SIGINT ? "Int" : "Term");
                         });

TEST_P(Interruption, SaysTheLineThatIsAnnouncedAndEndsByTheSignal) {
  const auto interrupted = [] {
    interruption::announce("another");
    interruption::announce("It may have been filed.");
    std::raise(GetParam());
    std::_Exit(0);
  };
  EXPECT_EXIT(interrupted(), testing::KilledBySignal(GetParam()), "^It may have been filed.\n$");
}

TEST_P(Interruption, SaysNothingOnceNothingIsAnnounced) {
  const auto interrupted = [] {
    interruption::announce("It may have been filed.");
    interruption::announce(nullptr);
    std::raise(GetParam());
    std::_Exit(0);
  };
  EXPECT_EXIT(interrupted(), testing::KilledBySignal(GetParam()), "^$");
}

TEST_P(Interruption, StaysIgnoredOrTheProgramsOwn) {
  const auto interrupted = [](void (*handler)(int)) {
    std::signal(GetParam(), handler);
    interruption::announce("It may have been filed.");
    std::raise(GetParam());
    std::_Exit(0);
  };
  EXPECT_EXIT(interrupted(SIG_IGN), testing::ExitedWithCode(0), "^$");
  EXPECT_EXIT(interrupted([](int) { std::_Exit(7); }), testing::ExitedWithCode(7), "^$");
}

}  // namespace
}  // namespace ktpnaips
