#include <ktpnaips/core/masking.h>
#include <ktpnaips/platform/lasting.h>

#include <boost/regex.hpp>

namespace ktpnaips {

std::string withMaskedPasswords(std::string_view text) {
  static const platform::Lasting<boost::regex> passwords(
      R"((\spassword\s*=\s*")[^"]*|(\spassword\s*=\s*')[^']*)"
      R"(|(<(?:[^\s<>/:]+:)?new-password(?:\s(?:[^<>]*[^<>/])?)?>)[^<]*)");
  return boost::regex_replace(std::string(text), *passwords, "$1$2$3********");
}

}  // namespace ktpnaips
