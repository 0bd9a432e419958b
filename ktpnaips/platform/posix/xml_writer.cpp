#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/xml.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ktpnaips::xml {
namespace {

/// Writes a node with what it holds, in the one form that all platforms send: each prefix is
/// declared where it was parsed or else where it is first needed. A part of a document also
/// declares, at its start, what it has from around. Depth costs no stack.
class Writer {
 public:
  Writer(const Tree& tree, Index top) : tree_(tree), top_(top) {}

  std::string write() {
    for (Index node = top_;;) {
      if (open(node)) {
        node = tree_[node].firstChild;
        continue;
      }
      while (node != top_ && tree_[node].next == 0) {
        node = tree_[node].parent;
        close(node);
      }
      if (node == top_) break;
      node = tree_[node].next;
    }
    xml_.insert(endOfDeclarations_, fromAround_);
    return std::move(xml_);
  }

  std::string writeText(std::string_view text) {
    escape(xml_, text, false);
    return std::move(xml_);
  }

 private:
  struct InScope {
    Index binding;
    Index element;
  };

  void put(std::initializer_list<std::string_view> parts) {
    for (const auto part : parts) xml_ += part;
  }

  /// True when the node's children are to be written, then its end.
  bool open(Index node) {
    const std::string_view text = tree_.textOf(node);
    switch (tree_[node].kind()) {
      case Kind::element:
        return openElement(node);
      case Kind::attribute:
      case Kind::declaration:
        putAttribute(node);
        break;
      case Kind::text:
        escape(xml_, text, false);
        break;
      case Kind::data:
        put({"<![CDATA[", text, "]]>"});
        break;
      case Kind::comment:
        put({"<!--", text, "-->"});
        break;
      case Kind::instruction:
        put({"<?", tree_.nameOf(node).qualified, tree_[node].hasText() ? " " : "", text, "?>"});
        break;
      case Kind::document:
        break;
    }
    return false;
  }

  bool openElement(Index element) {
    const Entry& entry = tree_[element];
    put({"<", tree_.nameOf(element).qualified});
    Index attribute = entry.firstAttribute;
    for (Index each = attribute; each != 0; each = tree_[each].next) {
      if (tree_[each].kind() == Kind::declaration)
        declare(xml_, tree_.nameOf(each).binding, element);
    }
    if (element == top_) endOfDeclarations_ = xml_.size();
    const bool isAsAround =
        element != top_ && tree_.nameOf(element).binding == tree_.nameOf(entry.parent).binding;
    if (!isAsAround) require(tree_.nameOf(element).binding, element);
    for (Index each = attribute; each != 0; each = tree_[each].next) {
      const Name& name = tree_.nameOf(each);
      if (tree_[each].kind() == Kind::attribute && name.hasPrefix()) require(name.binding, element);
    }
    for (; attribute != 0; attribute = tree_[attribute].next) {
      if (tree_[attribute].kind() != Kind::attribute) continue;
      xml_ += ' ';
      putAttribute(attribute);
    }
    const bool hasContent = entry.hasText() || entry.firstChild != 0;
    xml_ += hasContent ? ">" : "/>";
    escape(xml_, tree_.textOf(element), false);
    if (hasContent && entry.firstChild == 0) close(element);
    if (!hasContent) leave(element);
    return entry.firstChild != 0;
  }

  void close(Index element) {
    put({"</", tree_.nameOf(element).qualified, ">"});
    leave(element);
  }

  void leave(Index element) {
    while (!inScope_.empty() && inScope_.back().element == element) inScope_.pop_back();
  }

  /// Declares a prefix unless it is.
  void require(Index binding, Index element) {
    const Binding& wanted = tree_.names.bindings[binding];
    if (wanted.prefix == "xml") return;
    for (auto each = inScope_.rbegin(); each != inScope_.rend(); ++each) {
      if (each->binding == binding) return;
      if (tree_.names.bindings[each->binding].prefix == wanted.prefix) {
        declare(xml_, binding, element);
        return;
      }
    }
    const auto around = tree_.lookUp(wanted.prefix, tree_[top_].parent);
    if (binding != 0 && around != wanted.uri) {
      declare(xml_, binding, element);
      return;
    }
    // As long as the part is written: nothing in it is in another namespace for want of a prefix.
    inScope_.insert(inScope_.begin(), {binding, top_});
    if (binding != 0) putDeclaration(fromAround_, binding);
  }

  void declare(std::string& to, Index binding, Index element) {
    inScope_.push_back({binding, element});
    putDeclaration(to, binding);
  }

  void putDeclaration(std::string& to, Index binding) {
    const auto& [prefix, uri] = tree_.names.bindings[binding];
    to += prefix.empty() ? " xmlns" : " xmlns:";
    to += prefix;
    to += "=\"";
    escape(to, tree_.names.uris[uri], true);
    to += '"';
  }

  void putAttribute(Index attribute) {
    const Name& name = tree_.nameOf(attribute);
    const bool isDeclaration = tree_[attribute].kind() == Kind::declaration;
    put({name.qualified, "=\""});
    escape(xml_, isDeclaration ? tree_.names.uris[name.uri] : tree_.textOf(attribute), true);
    xml_ += '"';
  }

  static void escape(std::string& to, std::string_view text, bool inAttribute) {
    std::size_t written = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
      const char c = text[at];
      if (c > '>') continue;
      const bool isSpecial = c == '&' || c == '<' || c == '>' || c == '\r' ||
                             (inAttribute && (c == '"' || c == '\n' || c == '\t'));
      if (!isSpecial) continue;
      to.append(text, written, at - written);
      to += reference(c);
      written = at + 1;
    }
    to.append(text, written);
  }

  static std::string_view reference(char c) {
    switch (c) {
      case '&':
        return "&amp;";
      case '<':
        return "&lt;";
      case '>':
        return "&gt;";
      case '"':
        return "&quot;";
      case '\t':
        return "&#9;";
      case '\n':
        return "&#10;";
      default:
        return "&#13;";
    }
  }

  const Tree& tree_;
  Index top_;
  std::string xml_;
  std::vector<InScope> inScope_;
  std::size_t endOfDeclarations_ = 0;  ///< those of the first element
  std::string fromAround_;             ///< what it declares for the part
};

}  // namespace

std::string Node::serialise() const {
  const SharedDocument& document = NodeAccess::owner(*this);
  if (document.hasForbiddenCharacters) throw RuntimeFault(fault::invalidCall);
  const auto [node, isText] = NodeAccess::place(*this);
  const Index top = node == 0 ? document.tree.documentElement() : node;
  if (top == 0) return {};
  Writer writer(document.tree, top);
  return isText ? writer.writeText(document.tree.textOf(top)) : writer.write();
}

}  // namespace ktpnaips::xml
