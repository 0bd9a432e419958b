#include "cli/json.h"

#include "cli/characters.h"
#include "cli/secrets.h"
#include "cli/standard_output.h"

#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace cli {
namespace {

/// Masks secrets in the texts of a value. (What it looks like as JSON may have them by chance.)
void mask(Json& value) {
  if (value.is_string()) {
    value = withoutSecrets(value.get_ref<const std::string&>());
  } else if (value.is_structured()) {
    for (Json& each : value) mask(each);
  }
}

}  // namespace

Json jsonText(std::wstring_view text) {
  return ktpnaips::text::toUtf8(text);
}

JsonObject::JsonObject(Write write) : write_(std::move(write)) {
  write_("{");
}

void JsonObject::set(std::string_view key, const Json& value) {
  writeKey(key);
  write(value);
}

void JsonObject::setAll(const Json& object) {
  for (const auto& [key, value] : object.items()) set(key, value);
}

void JsonObject::end() {
  write_("}");
}

void JsonObject::writeKey(std::string_view key) {
  if (!isEmpty_) write_(",");
  isEmpty_ = false;
  write_(Json(key).dump());
  write_(":");
}

void JsonObject::write(Json value) {
  mask(value);
  const std::string text = value.dump(-1, ' ', false, Json::error_handler_t::replace);
  std::size_t written = 0;
  for (std::size_t at = 0; at < text.size();) {
    const Character character = characterAt(text, at);
    if (isActedOn(character.code)) {
      write_(std::string_view(text).substr(written, at - written));
      write_(fmt::format("\\u{:04x}", static_cast<std::uint32_t>(character.code)));
      written = at + character.length;
    }
    at += character.length;
  }
  write_(std::string_view(text).substr(written));
}

void printJson(const JsonMembers& members) {
  JsonObject json(writeOutput);
  members(json);
  json.end();
  writeOutput("\n");
}

WrittenJson writtenJson(const JsonMembers& members) {
  WrittenJson written;
  JsonObject json([&](std::string_view piece) { written.text += piece; });
  members(json);
  json.end();
  return written;
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
