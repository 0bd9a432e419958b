#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_common.h>

#include <algorithm>
#include <initializer_list>

namespace ktpnaips::xml {
namespace {

/// Writes a node with what it holds, in the one form that all platforms send: a prefix is declared
/// where it was parsed, or else where it is first needed. A part of a document declares at its
/// start what it has from around. Depth costs no stack.
class Writer {
 public:
  Writer(const Tree& tree, Index top) : tree_(tree), top_(top) {}

  std::string write() {
    for (Index node = top_;;) {
      if (open(node)) {
        ++levels_;
        node = tree_[node].firstChild;
        continue;
      }
      for (; node != top_ && tree_[node].next == 0; --levels_) {
        node = tree_[node].parent;
        close(node);
      }
      if (node == top_) break;
      node = tree_[node].next;
    }
    xml_.insert(endOfDeclarations_, fromAround_);
    return std::move(xml_);
  }

 private:
  struct InScope {
    std::string_view prefix;
    Index uri;
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
        putAttribute(node);
        break;
      case Kind::declaration:
        putDeclaration(xml_, tree_.nameOf(node).qualified, tree_.nameOf(node).uri);
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
      default:
        escape(xml_, text, false);
        break;
    }
    return false;
  }

  bool openElement(Index element) {
    if (levels_ == mostLevels) refuseDepth();
    const Entry& entry = tree_[element];
    put({"<", tree_.nameOf(element).qualified});
    declareAll(element);
    for (Index each = entry.firstAttribute; each != 0; each = tree_[each].next) {
      if (tree_[each].kind() != Kind::attribute) continue;
      xml_ += ' ';
      putAttribute(each);
    }
    const bool isEmpty = !entry.hasText() && entry.firstChild == 0;
    xml_ += isEmpty ? "/>" : ">";
    escape(xml_, tree_.textOf(element), false);
    if (entry.firstChild != 0) return true;
    if (!isEmpty) put({"</", tree_.nameOf(element).qualified, ">"});
    leave(element);
    return false;
  }

  void close(Index element) {
    put({"</", tree_.nameOf(element).qualified, ">"});
    leave(element);
  }

  void leave(Index element) {
    while (!inScope_.empty() && inScope_.back().element == element) inScope_.pop_back();
  }

  /// What the element declares, then what it has to.
  void declareAll(Index element) {
    const Index first = tree_[element].firstAttribute;
    for (Index each = first; each != 0; each = tree_[each].next) {
      const Name& name = tree_.nameOf(each);
      if (tree_[each].kind() == Kind::declaration) declare(name.qualified, name.uri, element);
    }
    if (element == top_) endOfDeclarations_ = xml_.size();
    const Name& name = tree_.nameOf(element);
    const Name& around = tree_.nameOf(tree_[element].parent);
    const bool isAsAround =
        element != top_ && name.uri == around.uri && name.prefix() == around.prefix();
    if (!isAsAround) require(name, element);
    for (Index each = first; each != 0; each = tree_[each].next) {
      const bool mayNeedIt =
          tree_[each].kind() == Kind::attribute && tree_.nameOf(each).hasPrefix();
      if (mayNeedIt) require(tree_.nameOf(each), element);
    }
  }

  /// Declares a name's prefix unless it is.
  void require(const Name& name, Index element) {
    const std::string_view prefix = name.prefix();
    if (prefix == "xml") return;
    const auto around =
        std::find_if(inScope_.rbegin(), inScope_.rend(),
                     [prefix](const InScope& each) { return each.prefix == prefix; });
    if (around != inScope_.rend()) {
      if (around->uri != name.uri) declare(prefix, name.uri, element);
      return;
    }
    const bool isNone = prefix.empty() && name.uri == 0;
    if (!isNone && tree_.lookUp(prefix, tree_[top_].parent) != name.uri) {
      declare(prefix, name.uri, element);
      return;
    }
    inScope_.insert(inScope_.begin(), {prefix, name.uri, top_});
    if (!isNone) putDeclaration(fromAround_ += ' ', prefix, name.uri);
  }

  void declare(std::string_view prefix, Index uri, Index element) {
    inScope_.push_back({prefix, uri, element});
    putDeclaration(xml_ += ' ', prefix, uri);
  }

  void putDeclaration(std::string& to, std::string_view prefix, Index uri) {
    to.append(prefix.empty() ? "xmlns" : "xmlns:").append(prefix).append("=\"");
    escape<char>(to, tree_.names.uriOf(uri), true);
    to += '"';
  }

  void putAttribute(Index attribute) {
    put({tree_.nameOf(attribute).qualified, "=\""});
    escape(xml_, tree_.textOf(attribute), true);
    xml_ += '"';
  }

  const Tree& tree_;
  Index top_;
  std::size_t levels_ = 0;
  std::string xml_;
  std::vector<InScope> inScope_;
  std::size_t endOfDeclarations_ = 0;  ///< those of the first element
  std::string fromAround_;             ///< what it declares for the part
};

}  // namespace

std::string Node::serialise() const {
  const SharedDocument& document = NodeAccess::owner(*this);
  if (document.hasForbiddenCharacters) throw RuntimeFault(fault::invalidCall);
  const Place place = NodeAccess::place(*this);
  const Index top = place.node == 0 ? document.tree.documentElement() : place.node;
  if (top == 0) return {};
  if (!place.isText) return Writer(document.tree, top).write();
  std::string xml;
  escape(xml, document.tree.textOf(top), false);
  return xml;
}

}  // namespace ktpnaips::xml
