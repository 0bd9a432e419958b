#include <ktpnaips/platform/text.h>

#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is POSIX
#include <cwctype>

namespace ktpnaips::text {
namespace {

locale_t unicodeLocale() {
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return locale;
}

wchar_t upperOf(wchar_t c) {
  if (c < 0x80) return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 0x20) : c;
  const locale_t locale = unicodeLocale();
  if (locale == nullptr) return c;
  return static_cast<wchar_t>(towupper_l(static_cast<wint_t>(c), locale));
}

}  // namespace

std::wstring toUpper(std::wstring_view text) {
  std::wstring upper(text);
  for (wchar_t& c : upper) c = upperOf(c);
  return upper;
}

}  // namespace ktpnaips::text
