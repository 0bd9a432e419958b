#include "cli/arguments.h"

#include "cli/usage_error.h"

#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace cli {

using ktpnaips::DateTime;
using ktpnaips::text::fromUtf8;

namespace {

/// Reads the fixed pattern: a 0 stands for a digit, every other character for itself.
bool fits(std::string_view text, std::string_view pattern) {
  if (text.size() != pattern.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isDigit = text[i] >= '0' && text[i] <= '9';
    if (pattern[i] == '0' ? !isDigit : text[i] != pattern[i]) return false;
  }
  return true;
}

int numberAt(std::string_view text, std::size_t position, std::size_t length) {
  int value = 0;
  std::from_chars(text.data() + position, text.data() + position + length, value);
  return value;
}

[[noreturn]] void refuseAsMissing(const std::string& text) {
  throw UsageError(fmt::format("\"{}\" is not a date and time that exists", text));
}

/// The day that the text's first ten characters, YYYY-MM-DD, give.
std::chrono::local_days dayOf(const std::string& text) {
  using namespace std::chrono;
  const year_month_day date{year{numberAt(text, 0, 4)},
                            month{static_cast<unsigned>(numberAt(text, 5, 2))},
                            day{static_cast<unsigned>(numberAt(text, 8, 2))}};
  if (!date.ok()) refuseAsMissing(text);
  return local_days{date};
}

}  // namespace

CLI::Option* addText(CLI::App& app, const char* name, const char* help, TextSetter set) {
  return app
      .add_option_function<std::string>(
          name, [set = std::move(set)](const std::string& text) { set(fromUtf8(text)); }, help)
      ->type_name("TEXT");
}

CLI::Option* addTexts(CLI::App& app, const char* name, const char* help, TextSetter add) {
  auto* option = app.add_option_function<std::vector<std::string>>(
      name,
      [add = std::move(add)](const std::vector<std::string>& texts) {
        for (const auto& text : texts) add(fromUtf8(text));
      },
      help);
  const bool isRepeated = std::string_view(name).starts_with("--");
  return option->type_name("TEXT")->allow_extra_args(!isRepeated);
}

void addFlag(CLI::App& app, const char* name, const char* help, std::function<void()> set) {
  app.add_flag_callback(name, std::move(set), help);
}

CLI::Option* addNumber(CLI::App& app, const char* name, const char* help,
                       std::function<void(std::int16_t)> set) {
  return app.add_option_function<std::int16_t>(name, std::move(set), help)->type_name("N");
}

DateTime parseDateTime(const std::string& text) {
  using namespace std::chrono;
  std::string_view value = text;
  if (value.ends_with('Z')) value.remove_suffix(1);
  const bool hasSeconds = fits(value, "0000-00-00T00:00:00");
  if (!hasSeconds && !fits(value, "0000-00-00T00:00")) {
    throw UsageError(
        fmt::format("\"{}\" is not a date-time: write YYYY-MM-DDThh:mm[:ss]Z, UTC", text));
  }
  const int hour = numberAt(value, 11, 2);
  const int minute = numberAt(value, 14, 2);
  const int second = hasSeconds ? numberAt(value, 17, 2) : 0;
  if (hour > 23 || minute > 59 || second > 59) refuseAsMissing(text);
  return dayOf(text) + hours{hour} + minutes{minute} + seconds{second};
}

DateTime parseDate(const std::string& text) {
  if (!fits(text, "0000-00-00")) {
    throw UsageError(fmt::format("\"{}\" is not a date: write YYYY-MM-DD", text));
  }
  return dayOf(text);
}

void addRequestFile(CLI::App& app, const std::function<void(const std::string&)>& read) {
  app.add_option_function<std::string>("FILE", read, "Request file (JSON), or - for standard input")
      ->required();
}

void addPeriod(CLI::App& app, ktpnaips::BriefingRequest& period) {
  const auto dateTime = [&](const char* name, const char* help, std::function<void(DateTime)> set) {
    app.add_option_function<std::string>(
           name, [set = std::move(set)](const std::string& text) { set(parseDateTime(text)); },
           help)
        ->type_name("DATETIME");
  };
  dateTime("--from", "Start of the period, UTC", [&](DateTime value) { period.From(value); });
  dateTime("--till", "End of the period, UTC", [&](DateTime value) { period.Till(value); });
  addNumber(app, "--hours", "Length of the period from now, 1 to 47 hours",
            [&](std::int16_t value) { period.Duration(value); });
}

}  // namespace cli
