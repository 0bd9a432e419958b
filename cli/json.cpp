#include "cli/json.h"

#include "cli/characters.h"
#include "cli/text_output.h"

#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace cli {

Json jsonText(std::wstring_view text) {
  return ktpnaips::text::toUtf8(text);
}

void printJson(const Json& json) {
  const std::string text = json.dump(-1, ' ', false, Json::error_handler_t::replace);
  std::string line;
  line.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Character character = characterAt(text, at);
    if (isActedOn(character.code)) {
      line += fmt::format("\\u{:04x}", static_cast<std::uint32_t>(character.code));
    } else {
      line.append(text, at, character.length);
    }
    at += character.length;
  }
  printLine(line);
}

std::string dateTimeText(ktpnaips::DateTime value) {
  using namespace std::chrono;
  const auto day = floor<days>(value);
  const year_month_day date{day};
  const hh_mm_ss time{value - day};
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                     time.hours().count(), time.minutes().count(), time.seconds().count());
}

}  // namespace cli
