#include "simulator/element.h"

#include <utility>

namespace sim {

Element::Element(std::string name, std::string text)
    : name_(std::move(name)), text_(std::move(text)) {}

Element& Element::add(std::string name, std::string text) {
  return children_.emplace_back(std::move(name), std::move(text));
}

Element& Element::attribute(std::string name, std::string value) {
  attributes_.emplace_back(std::move(name), std::move(value));
  return *this;
}

void Element::clear() {
  text_.clear();
  attributes_.clear();
  children_.clear();
}

void Element::write(std::string& out, std::string_view namespaceDeclaration) const {
  out.append("<naips:").append(name_).append(namespaceDeclaration);
  for (const auto& [name, value] : attributes_) {
    out.append(" ").append(name).append("=\"").append(escapeXml(value)).append("\"");
  }
  if (text_.empty() && children_.empty()) {
    out.append("/>");
    return;
  }
  out.append(">").append(escapeXml(text_));
  for (const Element& child : children_) {
    child.write(out);
  }
  out.append("</naips:").append(name_).append(">");
}

std::string escapeXml(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (;;) {
    const std::size_t end = text.find_first_of("&<>\"");
    result.append(text.substr(0, end));
    if (end == std::string_view::npos) {
      return result;
    }
    switch (text[end]) {
      case '&':
        result.append("&amp;");
        break;
      case '<':
        result.append("&lt;");
        break;
      case '>':
        result.append("&gt;");
        break;
      default:
        result.append("&quot;");
    }
    text.remove_prefix(end + 1);
  }
}

}  // namespace sim
