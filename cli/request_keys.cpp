#include "cli/request_keys.h"

#include <ktpnaips/platform/runtime_fault.h>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <charconv>

namespace cli {

void read(const FileValue& from, std::wstring& into) {
  into = from.text();
}

void read(const FileValue& from, bool& into) {
  into = from.truth();
}

void read(const FileValue& from, std::int16_t& into) {
  into = from.number();
}

void read(const FileValue& from, double& into) {
  into = from.real();
}

void read(const FileValue& from, ktpnaips::DateTime& into) {
  into = from.dateTime();
}

void setFlags(ktpnaips::FlagWord& word, const FileValue& flags) {
  for (const FileValue& flag : flags.members()) {
    const std::string& digits = flag.key();
    const char* const end = digits.data() + digits.size();
    std::int32_t bit = 0;
    const auto [parsed, error] = std::from_chars(digits.data(), end, bit);
    if (error != std::errc() || parsed != end) flag.refuse("is no flag: flags are whole numbers");
    try {
      word.setFlag(bit, flag.truth());
    } catch (const ktpnaips::RuntimeFault&) {
      flag.refuse("is no flag: the highest is 30");
    }
  }
}

void refuseKey(const FileValue& value, const std::vector<std::string_view>& known) {
  value.refuse(fmt::format("is not known; the keys here are {}", fmt::join(known, ", ")));
}

}  // namespace cli
