#include "cli/pack/html.h"

#include "cli/characters.h"
#include "cli/secrets.h"

namespace cli::pack {

std::string escaped(std::string_view text) {
  const std::string shown = harmless(withoutSecrets(text));
  std::string result;
  result.reserve(shown.size());
  for (const char c : shown) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      case '\'':
        result += "&#39;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string element(std::string_view name, std::string_view text, std::string_view attributes) {
  std::string result("<");
  result.append(name);
  if (!attributes.empty()) result.append(" ").append(attributes);
  result.append(">").append(escaped(text)).append("</").append(name).append(">");
  return result;
}

}  // namespace cli::pack
