#include <ktpnaips/notification/icao_notification.h>
#include <ktpnaips/notification/sartime_notification.h>

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

#include "tests/support/scoped_environment.h"

namespace ktpnaips {
namespace {

/// A time zone without daylight saving, until the end of the scope.
class ScopedTimeZone {
 public:
  explicit ScopedTimeZone(const char* zone) : variable_("TZ", zone) { ::tzset(); }

 private:
  struct Reread {
    ~Reread() { ::tzset(); }
  };
  Reread whenRestored_;
  test::ScopedEnvironment variable_;
};

DateTime utcNow() {
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  return DateTime(now.time_since_epoch());
}

template <class Stage>
void expectLocalDeparture(const char* zone, std::chrono::minutes offset) {
  const ScopedTimeZone scope(zone);
  const DateTime before = utcNow() + offset;
  const Stage stage;
  EXPECT_GE(stage.ETD(), before);
  EXPECT_LE(stage.ETD(), utcNow() + offset);
}

TEST(DefaultDeparture, IsLocalTimeAndNotUtc) {
  using namespace std::chrono_literals;
  expectLocalDeparture<ICAOFlightNotifStage>("EAST-10:30", 10h + 30min);
  expectLocalDeparture<ICAOFlightNotifStage>("WEST7", -7h);
  expectLocalDeparture<SARTimeFlightNotifStage>("EAST-10:30", 10h + 30min);
  expectLocalDeparture<SARTimeFlightNotifStage>("WEST7", -7h);
}

}  // namespace
}  // namespace ktpnaips
