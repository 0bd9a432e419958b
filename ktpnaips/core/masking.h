#pragma once

#include <string>
#include <string_view>

namespace ktpnaips {

/// The text with each password replaced by asterisks: the values of `password` attributes and the
/// content of `new-password` elements, in either kind of quotes and with any prefix, as requests
/// have them and an answer may repeat them. A value that does not end is masked to the end.
std::string withMaskedPasswords(std::string_view text);

}  // namespace ktpnaips
