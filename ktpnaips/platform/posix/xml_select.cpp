#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/posix/xml_memory.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>

#include <libxml/xpathInternals.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

namespace ktpnaips::xml {
namespace {

using Result = std::unique_ptr<xmlXPathObject, FreeWith<xmlXPathFreeObject>>;

constexpr auto invalidExpression = static_cast<std::int32_t>(0x80004005U);

/// One step of a plain child path: "prefix:name", or "name" for one without a namespace.
struct Step {
  std::string_view uri;  ///< empty for none
  std::string_view name;
};

/// A path of child steps only, or a single one anywhere in the document ("//prefix:name"), which
/// needs no XPath evaluation.
class PlainPath {
 public:
  /// False when the expression is more than that, or has a prefix that is not bound.
  bool read(std::string_view expression, const std::vector<Binding>& bindings) {
    if (expression.starts_with("//")) {
      isAnywhere_ = true;
      return readStep(expression.substr(2), bindings);
    }
    while (count_ < steps_.size()) {
      const auto slash = expression.find('/');
      if (!readStep(expression.substr(0, slash), bindings)) return false;
      if (slash == std::string_view::npos) return true;
      expression.remove_prefix(slash + 1);
    }
    return false;
  }

  [[nodiscard]] bool isAnywhere() const { return isAnywhere_; }

  [[nodiscard]] bool isLast(std::size_t step) const { return step + 1 == count_; }

  [[nodiscard]] bool matches(std::size_t step, const xmlNode* node) const {
    return node->type == XML_ELEMENT_NODE && isSame(steps_[step].name, node->name) &&
           isIn(node->ns, steps_[step].uri);
  }

 private:
  static bool isSame(std::string_view text, const xmlChar* other) {
    const bool isStart =
        text.empty() || std::strncmp(text.data(), asChars(other), text.size()) == 0;
    return isStart && other[text.size()] == 0;
  }

  static bool isIn(const xmlNs* space, std::string_view uri) {
    return space != nullptr ? isSame(uri, space->href) : uri.empty();
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
    if (colon == std::string_view::npos) {
      steps_[count_++] = {{}, name};
      return true;
    }
    const auto binding = std::ranges::find(bindings, step.substr(0, colon), &Binding::first);
    if (binding == bindings.end()) return false;
    steps_[count_++] = {binding->second, name};
    return true;
  }

  std::array<Step, 4> steps_;
  std::size_t count_ = 0;
  bool isAnywhere_ = false;
};

/// Calls `found` for each node at the end of the path below `parent`, in document order, until it
/// returns false.
template <class Found>
bool walk(xmlNodePtr parent, const PlainPath& path, std::size_t step, Found& found) {
  for (xmlNodePtr child = parent->children; child != nullptr; child = child->next) {
    if (!path.matches(step, child)) continue;
    if (!(path.isLast(step) ? found(child) : walk(child, path, step + 1, found))) return false;
  }
  return true;
}

/// Calls `found` for each node in the document that matches, until it returns false.
template <class Found>
void walkDocument(xmlDocPtr document, const PlainPath& path, Found& found) {
  for (xmlNodePtr node = document->children; node != nullptr; node = following(node)) {
    if (path.matches(0, node) && !found(node)) return;
  }
}

void keepSilent(void*, xmlErrorPtr) {}

xmlXPathContextPtr evaluationContext(SharedDocument& owner) {
  if (owner.xpath == nullptr) {
    const MemoryWatch watch;
    Context context(made(xmlXPathNewContext(owner.document.get())));
    context->error = keepSilent;
    for (const auto& [prefix, uri] : owner.bindings) {
      xmlXPathRegisterNs(context.get(), asXml(prefix.c_str()), asXml(uri.c_str()));
    }
    watch.check();
    owner.xpath = std::move(context);
  }
  return owner.xpath.get();
}

Result evaluate(SharedDocument& owner, xmlNodePtr node, std::string_view expression) {
  const xmlXPathContextPtr context = evaluationContext(owner);
  context->node = node;
  const std::string text(expression);
  const MemoryWatch watch;
  Result result(xmlXPathEvalExpression(asXml(text.c_str()), context));
  watch.check();
  if (result == nullptr || result->type != XPATH_NODESET) {
    throw RuntimeFault(invalidExpression, L"The expression \"" + text::fromUtf8(expression) +
                                              L"\" does not select nodes.");
  }
  if (result->nodesetval != nullptr) xmlXPathNodeSetSort(result->nodesetval);
  return result;
}

/// Calls `found` for each node that the expression selects, until it returns false.
template <class Found>
void visit(const Node& from, std::string_view expression, Found found) {
  SharedDocument& owner = NodeAccess::owner(from);
  const xmlNodePtr node = NodeAccess::raw(from);
  if (PlainPath path; path.read(expression, owner.bindings)) {
    if (path.isAnywhere()) {
      walkDocument(owner.document.get(), path, found);
    } else {
      walk(node, path, 0, found);
    }
    return;
  }
  const Result result = evaluate(owner, node, expression);
  if (result->nodesetval == nullptr) return;
  for (int i = 0; i < result->nodesetval->nodeNr; ++i) {
    if (!found(result->nodesetval->nodeTab[i])) return;
  }
}

}  // namespace

Node Node::select(std::string_view expression) const {
  Node first;
  visit(*this, expression, [&](xmlNodePtr node) {
    first = NodeAccess::make(static_cast<SharedDocument*>(owner_), node);
    return false;
  });
  return first;
}

std::vector<Node> Node::selectAll(std::string_view expression) const {
  std::vector<Node> all;
  visit(*this, expression, [&](xmlNodePtr node) {
    all.push_back(NodeAccess::make(static_cast<SharedDocument*>(owner_), node));
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
    bindings.emplace_back(rest.substr(0, equals), rest.substr(equals + 2, end - equals - 2));
    rest.erase(0, end + 1);
  }
  owner.bindings = std::move(bindings);
  owner.xpath.reset();
}

}  // namespace ktpnaips::xml
