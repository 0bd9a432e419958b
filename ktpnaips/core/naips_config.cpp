#include <ktpnaips/core/conversions.h>
#include <ktpnaips/core/globals.h>
#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/platform/text.h>

namespace ktpnaips {

using Globals::settings;

std::int32_t NAIPSConfig::Mode() const {
  return settings().mode;
}
void NAIPSConfig::Mode(std::int32_t value) {
  settings().mode = value;
}

std::wstring NAIPSConfig::UserName() const {
  return settings().userName;
}
void NAIPSConfig::UserName(std::wstring_view value) {
  settings().userName = trimSpaces(text::toUpper(value));
}

std::wstring NAIPSConfig::Password() const {
  return settings().password;
}
void NAIPSConfig::Password(std::wstring_view value) {
  settings().password = value;
}

bool NAIPSConfig::NewFPLFormat() const {
  return settings().newFPLFormat;
}
void NAIPSConfig::NewFPLFormat(bool value) {
  settings().newFPLFormat = value;
}

bool NAIPSConfig::UseProxy() const {
  return settings().useProxy;
}
void NAIPSConfig::UseProxy(bool value) {
  settings().useProxy = value;
}

bool NAIPSConfig::DisableICAO() const {
  return settings().disableICAO;
}
void NAIPSConfig::DisableICAO(bool value) {
  settings().disableICAO = value;
}

}  // namespace ktpnaips
