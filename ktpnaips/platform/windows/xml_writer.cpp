#include <ktpnaips/platform/windows/xml_document.h>
#include <ktpnaips/platform/xml_common.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ktpnaips::xml {
namespace {

/// A prefix, empty for the default, and the namespace that it stands for.
using Declaration = std::pair<std::wstring, std::wstring>;

std::wstring_view prefixOf(std::wstring_view qualifiedName) {
  const auto colon = qualifiedName.find(L':');
  return colon == std::wstring_view::npos ? std::wstring_view() : qualifiedName.substr(0, colon);
}

/// Writes a tree, in the one form that all platforms send: the DOM's own writer adds line ends and
/// indents, or repeats declarations, as its implementer pleased.
class Writer {
 public:
  void write(IXMLDOMNode* node) {
    switch (typeOf(node)) {
      case NODE_DOCUMENT:
        writeDocumentElement(node);
        break;
      case NODE_ELEMENT:
        writeElement(node);
        break;
      case NODE_ATTRIBUTE:
        writeAttribute(nameOf(node), valueOf(node).view());
        break;
      case NODE_TEXT:
        escape(xml_, valueOf(node).view(), false);
        break;
      case NODE_CDATA_SECTION:
        put({L"<![CDATA[", valueOf(node).view(), L"]]>"});
        break;
      case NODE_COMMENT:
        put({L"<!--", valueOf(node).view(), L"-->"});
        break;
      case NODE_PROCESSING_INSTRUCTION:
        put({L"<?", nameOf(node), L" ", valueOf(node).view(), L"?>"});
        break;
      default:
        break;
    }
  }

  std::wstring take() { return std::move(xml_); }

 private:
  void put(std::initializer_list<std::wstring_view> parts) {
    for (const auto part : parts) xml_ += part;
  }

  void writeDocumentElement(IXMLDOMNode* document) {
    for (NativeNode child = firstChildOf(document); child; child = nextSiblingOf(child.get())) {
      if (typeOf(child.get()) == NODE_ELEMENT) writeElement(child.get());
    }
  }

  void writeElement(IXMLDOMNode* element) {
    if (++levels_ > mostLevels) refuseDepth();
    const std::size_t outerScope = inScope_.size();
    const std::wstring name = nameOf(element);
    put({L"<", name});
    writeAttributes(element, name);
    NativeNode child = firstChildOf(element);
    if (child) {
      put({L">"});
      for (; child; child = nextSiblingOf(child.get())) write(child.get());
      put({L"</", name, L">"});
    } else {
      put({L"/>"});
    }
    inScope_.resize(outerScope);
    --levels_;
  }

  /// The declarations first, then all other attributes.
  void writeAttributes(IXMLDOMNode* element, std::wstring_view elementName) {
    com::ComPtr<IXMLDOMNamedNodeMap> attributes;
    com::check(element->get_attributes(attributes.put()));
    std::vector<std::pair<std::wstring, std::wstring>> others;
    std::vector<Declaration> needed{{std::wstring(prefixOf(elementName)), namespaceOf(element)}};
    for (NativeNode each; attributes->nextNode(each.put()) == S_OK;) {
      std::wstring name = nameOf(each.get());
      std::wstring value(valueOf(each.get()).view());
      if (name == L"xmlns" || name.starts_with(L"xmlns:")) {
        declare({name.size() > 5 ? name.substr(6) : L"", std::move(value)});
        continue;
      }
      if (const auto prefix = prefixOf(name); !prefix.empty()) {
        needed.emplace_back(prefix, namespaceOf(each.get()));
      }
      others.emplace_back(std::move(name), std::move(value));
    }
    for (auto& declaration : needed) declare(std::move(declaration));
    for (const auto& [name, value] : others) {
      put({L" "});
      writeAttribute(name, value);
    }
  }

  void writeAttribute(std::wstring_view name, std::wstring_view value) {
    put({name, L"=\""});
    escape(xml_, value, true);
    put({L"\""});
  }

  void declare(Declaration declaration) {
    const auto& [prefix, uri] = declaration;
    const auto known = std::find_if(inScope_.rbegin(), inScope_.rend(),
                                    [&](const Declaration& each) { return each.first == prefix; });
    if (known != inScope_.rend() && known->second == uri) return;
    put({L" "});
    writeAttribute(prefix.empty() ? L"xmlns" : L"xmlns:" + prefix, uri);
    inScope_.push_back(std::move(declaration));
  }

  std::wstring xml_;
  std::size_t levels_ = 0;
  std::vector<Declaration> inScope_{{L"", L""}, {L"xml", L"http://www.w3.org/XML/1998/namespace"}};
};

}  // namespace

std::wstring written(IXMLDOMNode* node) {
  Writer writer;
  writer.write(node);
  return writer.take();
}

}  // namespace ktpnaips::xml
