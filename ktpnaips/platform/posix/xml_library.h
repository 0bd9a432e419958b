#pragma once

#include <libxml/parser.h>
#include <libxml/xmlstring.h>

#include <cstddef>
#include <memory>
#include <new>
#include <string_view>

/// What differs between the releases of libxml2, and its types.
namespace ktpnaips::xml {

template <auto Free>
struct FreeWith {
  template <class T>
  void operator()(T* object) const noexcept {
    Free(object);
  }
};

using Parser = std::unique_ptr<xmlParserCtxt, FreeWith<xmlFreeParserCtxt>>;

/// Throws "Out of memory" when so much cannot be allocated: where libxml2 would not say so.
void requireMemory(std::size_t size);

/// Sets libxml2 up, once, and for the calling thread: it does so itself on first use, but not when
/// two threads are the first, and not when memory is short.
void initialiseLibrary();

/// A parser for a single text, which tells the handler, with `data` first, what it reads.
Parser newParser(const xmlSAXHandler& handler, void* data);
/// Reads a text, behind which a NUL stands; in UTF-8 it is read where it lies.
void parseText(xmlParserCtxtPtr parser, std::string_view text);
/// True when the parser has stopped because there is no room for more names: it keeps them in a
/// table of fixed size.
bool exceedsNames(xmlParserCtxtPtr parser);

inline const xmlChar* asXml(const char* text) {
  return reinterpret_cast<const xmlChar*>(text);  // NOLINT: libxml2's UTF-8 is unsigned
}

inline const char* asChars(const xmlChar* text) {
  return reinterpret_cast<const char*>(text);  // NOLINT: as above
}

/// Empty for null.
inline std::string_view viewOf(const xmlChar* text) {
  return text != nullptr ? std::string_view(asChars(text)) : std::string_view();
}

/// What libxml2 returns when it fails is null: throws "Out of memory" then, the pointer otherwise.
template <class T>
T* made(T* pointer) {
  if (pointer == nullptr) throw std::bad_alloc();
  return pointer;
}

}  // namespace ktpnaips::xml
