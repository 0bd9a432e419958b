#pragma once

#include <list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sim {

// An element of an answer, written with the prefix of the schema namespace.
class Element {
 public:
  explicit Element(std::string name, std::string text = {});

  // Appends a child and returns it.
  Element& add(std::string name, std::string text = {});
  Element& attribute(std::string name, std::string value);
  void clear();  // drops children and attributes

  const std::string& name() const { return name_; }
  void write(std::string& out, std::string_view namespaceDeclaration = {}) const;

 private:
  std::string name_;
  std::string text_;
  std::vector<std::pair<std::string, std::string>> attributes_;
  std::list<Element> children_;
};

// Escapes what XML reserves; line ends stay as they are.
std::string escapeXml(std::string_view text);

}  // namespace sim
