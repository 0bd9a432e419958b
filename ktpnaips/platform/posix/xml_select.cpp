#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/posix/xml_expression.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>

#include <algorithm>
#include <array>

namespace ktpnaips::xml {
namespace {

/// A path of steps to children ("prefix:name", or "name" for one without a namespace), the last of
/// which may be to an attribute, or a single step anywhere in the document ("//prefix:name"): it
/// takes no evaluation.
class PlainPath {
 public:
  /// False when the expression is more than that, or has a prefix that is not bound.
  bool read(std::string_view expression, const std::vector<Binding>& bindings) {
    isAnywhere_ = expression.starts_with("//");
    if (isAnywhere_) return readStep(expression.substr(2), bindings);
    while (count_ < steps_.size() && !isToAttribute_) {
      const auto slash = expression.find('/');
      isToAttribute_ = expression.starts_with('@');
      const std::size_t start = isToAttribute_ ? 1 : 0;
      if (!readStep(expression.substr(start, slash - start), bindings)) return false;
      if (slash == std::string_view::npos) return true;
      expression.remove_prefix(slash + 1);
    }
    return false;
  }

  /// Calls `found` for each node at the end of the path, in document order, until it returns false.
  template <class Found>
  void walk(const Tree& tree, Place from, Found found) const {
    if (isAnywhere_) {
      for (Index node = tree[0].firstChild; node != 0; node = tree.following(node)) {
        if (matches(tree, 0, node, Kind::element) && !found(node)) return;
      }
    } else if (!from.isText) {
      walkStep(tree, from.node, 0, found);
    }
  }

 private:
  struct Step {
    Index uri = 0;
    std::string_view name;
  };

  template <class Found>
  bool walkStep(const Tree& tree, Index parent, std::size_t step, Found& found) const {
    const bool isLast = step + 1 == count_;
    const Kind kind = isLast && isToAttribute_ ? Kind::attribute : Kind::element;
    const bool isElement = kind == Kind::element;
    Index node = isElement ? tree[parent].firstChild : tree[parent].firstAttribute;
    for (; node != 0; node = tree[node].next) {
      if (!matches(tree, step, node, kind)) continue;
      if (!(isLast ? found(node) : walkStep(tree, node, step + 1, found))) return false;
    }
    return true;
  }

  [[nodiscard]] bool matches(const Tree& tree, std::size_t step, Index node, Kind kind) const {
    if (tree[node].kind() != kind) return false;
    const Name& name = tree.nameOf(node);
    return name.uri == steps_[step].uri && name.local() == steps_[step].name;
  }

  static bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

  static bool isName(std::string_view text) {
    return !text.empty() && isLetter(text.front()) && std::ranges::all_of(text, [](char c) {
      return isLetter(c) || (c >= '0' && c <= '9') || c == '-';
    });
  }

  bool readStep(std::string_view step, const std::vector<Binding>& bindings) {
    const auto colon = step.find(':');
    const std::string_view name = step.substr(colon + 1);  // the whole step without a colon
    if (!isName(name)) return false;
    Index uri = 0;
    if (colon != std::string_view::npos) {
      const auto binding = std::ranges::find(bindings, step.substr(0, colon), &Binding::first);
      if (binding == bindings.end()) return false;
      uri = binding->second;
    }
    steps_[count_++] = {uri, name};
    return true;
  }

  std::array<Step, 4> steps_;
  std::size_t count_ = 0;
  bool isAnywhere_ = false;
  bool isToAttribute_ = false;
};

/// Calls `found` for each node that the expression selects, until it returns false.
template <class Found>
void visit(const Node& from, std::string_view expression, Found found) {
  SharedDocument& owner = NodeAccess::owner(from);
  const Place place = NodeAccess::place(from);
  if (PlainPath path; path.read(expression, owner.bindings)) {
    path.walk(owner.tree, place,
              [&](Index node) { return found(NodeAccess::make(owner, Place{node})); });
    return;
  }
  if (owner.expressions == nullptr) {
    owner.expressions = std::make_unique<ExpressionDocument>(owner.tree, owner.bindings);
  }
  for (const Place each : owner.expressions->select(place, expression)) {
    if (!found(NodeAccess::make(owner, each))) return;
  }
}

}  // namespace

Node Node::select(std::string_view expression) const {
  Node first;
  visit(*this, expression, [&](Node node) {
    first = std::move(node);
    return false;
  });
  return first;
}

std::vector<Node> Node::selectAll(std::string_view expression) const {
  std::vector<Node> all;
  visit(*this, expression, [&](Node node) {
    all.push_back(std::move(node));
    return true;
  });
  return all;
}

void Document::bindPrefixes(std::wstring_view declarations) const {
  SharedDocument& owner = NodeAccess::owner(*this);
  std::vector<Binding> bindings;
  std::string rest = text::toUtf8(declarations);
  constexpr std::string_view start = "xmlns:";
  for (auto at = rest.find(start); at != std::string::npos; at = rest.find(start)) {
    rest.erase(0, at + start.size());
    const auto equals = rest.find('=');
    const auto end =
        equals + 1 < rest.size() ? rest.find(rest[equals + 1], equals + 2) : std::string::npos;
    if (equals == std::string::npos || end == std::string::npos) {
      throw RuntimeFault(fault::invalidCall, L"The namespace declarations cannot be read.");
    }
    const std::string_view uri = std::string_view(rest).substr(equals + 2, end - equals - 2);
    bindings.emplace_back(rest.substr(0, equals), owner.tree.names.uri(uri));
    rest.erase(0, end + 1);
  }
  owner.bindings = std::move(bindings);
  owner.expressions.reset();
}

}  // namespace ktpnaips::xml
