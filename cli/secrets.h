#pragma once

#include <string>
#include <string_view>

/// The passwords that this run has been given, which nothing that it shows may hold.
namespace cli {

/// From now on this value is left out of what is shown.
void conceal(std::string_view secret);

/// The text with asterisks in place of each concealed value, as it stands or in Base64, also where
/// XML, HTML, a URL or JSON has escaped it, once or twice. Values of less than four characters stay
/// where they are: they would be found in every briefing.
std::string withoutSecrets(std::string_view text);

}  // namespace cli
