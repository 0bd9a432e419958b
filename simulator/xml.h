#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

struct _xmlDoc;   // NOLINT(bugprone-reserved-identifier): libxml2's
struct _xmlNode;  // NOLINT(bugprone-reserved-identifier): libxml2's

namespace sim {

// An element of a parsed document, valid as long as the document.
class XmlView {
 public:
  explicit XmlView(_xmlNode* node) : node_(node) {}

  std::string name() const;  // local name
  std::string namespaceUri() const;
  std::string text() const;
  std::string attribute(std::string_view name) const;  // empty when absent
  bool flag(std::string_view name) const;              // the attribute is "true"
  bool has(std::string_view childName) const;

  std::vector<XmlView> children() const;
  std::vector<XmlView> children(std::string_view name) const;
  std::optional<XmlView> child(std::string_view name) const;
  std::string childText(std::string_view name) const;  // empty when absent
  std::vector<std::string> childTexts(std::string_view name) const;

  _xmlNode* node() const { return node_; }

 private:
  _xmlNode* node_;
};

struct XmlError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class XmlDocument {
 public:
  // Throws XmlError, naming line and reason, for text that is not well-formed and for any document
  // type declaration. Nothing outside the text is ever read.
  static XmlDocument parse(std::string_view text);

  XmlView root() const;
  _xmlDoc* get() const { return document_.get(); }

 private:
  struct Free {
    void operator()(_xmlDoc* document) const;
  };
  std::unique_ptr<_xmlDoc, Free> document_;
};

}  // namespace sim
