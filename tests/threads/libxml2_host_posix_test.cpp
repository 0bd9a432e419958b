#include "tests/system/simulator.h"

#include <ktpnaips/core/authenticate.h>
#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlmemory.h>
#include <libxml/xpath.h>

#include <atomic>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

/// A host that uses libxml2 itself, on threads of its own, while the library works.
namespace {

using ktpnaips::AuthenticateRqs;

struct Free {
  void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
  void operator()(xmlXPathContext* context) const { xmlXPathFreeContext(context); }
  void operator()(xmlXPathObject* object) const { xmlXPathFreeObject(object); }
  void operator()(xmlChar* text) const { xmlFree(text); }
};

template <class T>
using Owned = std::unique_ptr<T, Free>;

constexpr std::string_view right = "<a><b c='1'>text</b><b c='2'/></a>";
constexpr std::string_view malformed = "<a><b></a>";

Owned<xmlDoc> parsed(std::string_view text) {
  return Owned<xmlDoc>(
      xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, 0));
}

/// How many elements libxml2 finds, and what it writes.
bool isReadAndWritten() {
  const auto document = parsed(right);
  const Owned<xmlXPathContext> context(xmlXPathNewContext(document.get()));
  const Owned<xmlXPathObject> found(
      xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>("//b[@c]"), context.get()));
  xmlChar* written = nullptr;
  int size = 0;
  xmlDocDumpMemory(document.get(), &written, &size);
  const Owned<xmlChar> owner(written);
  return found != nullptr && found->nodesetval->nodeNr == 2 &&
         std::string(reinterpret_cast<const char*>(written), static_cast<std::size_t>(size)) ==
             "<?xml version=\"1.0\"?>\n<a><b c=\"1\">text</b><b c=\"2\"/></a>\n";
}

/// The host's handler of errors, which is its thread's, gets the host's errors and no others.
bool isToldOfItsErrorsOnly() {
  int errors = 0;
  xmlSetStructuredErrorFunc(&errors, [](void* count, auto*) { ++*static_cast<int*>(count); });
  const bool isRefused = parsed(malformed) == nullptr;
  const int own = errors;
  ktpnaips::xml::ParseFailure failure;
  const bool isRefusedHere = !ktpnaips::xml::Document::parse(std::string(malformed), &failure);
  xmlSetStructuredErrorFunc(nullptr, nullptr);
  return isRefused && isRefusedHere && own > 0 && errors == own;
}

struct MemoryFunctions {
  xmlFreeFunc release = nullptr;
  xmlMallocFunc allocate = nullptr;
  xmlReallocFunc reallocate = nullptr;
  xmlStrdupFunc duplicate = nullptr;

  bool operator==(const MemoryFunctions&) const = default;
};

MemoryFunctions memoryFunctions() {
  MemoryFunctions functions;
  xmlMemGet(&functions.release, &functions.allocate, &functions.reallocate, &functions.duplicate);
  return functions;
}

TEST(HostOfLibxml2, ParsesOnItsThreadsWhileTheLibraryWorks) {
  std::atomic<bool> isOver = false;
  std::atomic<int> bad = 0;
  std::vector<std::thread> hosts;
  for (int i = 0; i < 3; ++i) {
    hosts.emplace_back([&] {
      while (!isOver) bad += isReadAndWritten() ? 0 : 1;
    });
  }
  std::vector<std::thread> submitters;
  std::atomic<int> answers = 0;
  for (int i = 0; i < 3; ++i) {
    submitters.emplace_back([&] {
      simulator::use(true);
      for (int submit = 0; submit < 50; ++submit) {
        const auto response = AuthenticateRqs().submit();
        if (response != nullptr && !response->Error()) ++answers;
      }
    });
  }
  for (auto& thread : submitters) thread.join();
  isOver = true;
  for (auto& thread : hosts) thread.join();
  EXPECT_EQ(answers, 150);
  EXPECT_EQ(bad, 0);
}

TEST(HostOfLibxml2, KeepsItsHandlersOfErrors) {
  std::atomic<int> bad = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int each = 0; each < 200; ++each) bad += isToldOfItsErrorsOnly() ? 0 : 1;
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(bad, 0);
}

TEST(HostOfLibxml2, KeepsItsMemoryFunctions) {
  const MemoryFunctions before = memoryFunctions();
  std::thread([] {
    simulator::use(true);
    static_cast<void>(AuthenticateRqs().submit());
  }).join();
  EXPECT_EQ(memoryFunctions(), before);
}

}  // namespace
