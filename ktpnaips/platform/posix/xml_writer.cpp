#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/posix/xml_memory.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/xml.h>

#include <array>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace ktpnaips::xml {
namespace {

using NodeCopy = std::unique_ptr<xmlNode, FreeWith<xmlFreeNode>>;

/// A copy of an element that stands in another one, declaring the namespaces that it has from
/// around; nothing for what can be written where it is.
NodeCopy partOfADocument(xmlNodePtr node) {
  const bool isPart = node->type == XML_ELEMENT_NODE && node->parent != nullptr &&
                      node->parent->type == XML_ELEMENT_NODE;
  if (!isPart) return nullptr;
  const MemoryWatch watch;
  NodeCopy copy(made(xmlDocCopyNode(node, node->doc, 1)));
  watch.check();
  return copy;
}

/// Writes a tree, in the one form that all platforms send. Depth costs no stack.
class Writer {
 public:
  void write(const xmlNode* root) {
    for (const xmlNode* node = root;;) {
      if (open(node)) {
        node = node->children;
        continue;
      }
      while (node != root && node->next == nullptr) {
        node = node->parent;
        close(node);
      }
      if (node == root) return;
      node = node->next;
    }
  }

  std::string take() { return std::move(xml_); }

 private:
  void put(std::initializer_list<std::string_view> parts) {
    for (const auto part : parts) xml_ += part;
  }

  /// True when the node's children are to be written, then its end.
  bool open(const xmlNode* node) {
    switch (node->type) {
      case XML_ELEMENT_NODE:
        return openElement(node);
      case XML_ATTRIBUTE_NODE:
        putAttribute(reinterpret_cast<const xmlAttr*>(node));  // NOLINT: DOM base
        break;
      case XML_TEXT_NODE:
        escape(contentOf(node), false);
        break;
      case XML_CDATA_SECTION_NODE:
        put({"<![CDATA[", asChars(contentOf(node)), "]]>"});
        break;
      case XML_COMMENT_NODE:
        put({"<!--", asChars(contentOf(node)), "-->"});
        break;
      case XML_PI_NODE:
        put({"<?", asChars(node->name), node->content != nullptr ? " " : "",
             asChars(contentOf(node)), "?>"});
        break;
      default:
        break;
    }
    return false;
  }

  bool openElement(const xmlNode* element) {
    xml_ += '<';
    putName(element->ns, element->name);
    for (const xmlNs* each = element->nsDef; each != nullptr; each = each->next) {
      xml_ += " xmlns";
      if (each->prefix != nullptr) put({":", asChars(each->prefix)});
      xml_ += "=\"";
      if (each->href != nullptr) escape(each->href, true);
      xml_ += '"';
    }
    for (const xmlAttr* each = element->properties; each != nullptr; each = each->next) {
      xml_ += ' ';
      putAttribute(each);
    }
    xml_ += element->children != nullptr ? ">" : "/>";
    return element->children != nullptr;
  }

  void close(const xmlNode* element) {
    xml_ += "</";
    putName(element->ns, element->name);
    xml_ += '>';
  }

  void putName(const xmlNs* space, const xmlChar* name) {
    if (space != nullptr && space->prefix != nullptr) put({asChars(space->prefix), ":"});
    xml_ += asChars(name);
  }

  void putAttribute(const xmlAttr* attribute) {
    putName(attribute->ns, attribute->name);
    xml_ += "=\"";
    for (const xmlNode* part = attribute->children; part != nullptr; part = part->next) {
      if (part->type == XML_TEXT_NODE) escape(contentOf(part), true);
    }
    xml_ += '"';
  }

  void escape(const xmlChar* text, bool inAttribute) {
    const char* written = asChars(text);
    const char* at = written;
    for (; *at != '\0'; ++at) {
      const bool isSpecial = *at == '&' || *at == '<' || *at == '>' || *at == '\r' ||
                             (inAttribute && (*at == '"' || *at == '\n' || *at == '\t'));
      if (!isSpecial) continue;
      xml_.append(written, at);
      xml_ += reference(*at);
      written = at + 1;
    }
    xml_.append(written, at);
  }

  static const xmlChar* contentOf(const xmlNode* text) {
    return text->content != nullptr ? text->content : asXml("");
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

  std::string xml_;
};

}  // namespace

std::string Node::serialise() const {
  if (NodeAccess::owner(*this).hasForbiddenCharacters) throw RuntimeFault(fault::invalidCall);
  xmlNodePtr root = NodeAccess::raw(*this);
  if (root->type == XML_DOCUMENT_NODE) root = xmlDocGetRootElement(root->doc);
  if (root == nullptr) return {};
  const NodeCopy part = partOfADocument(root);
  Writer writer;
  writer.write(part != nullptr ? part.get() : root);
  return writer.take();
}

}  // namespace ktpnaips::xml
