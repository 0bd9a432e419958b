#include <ktpnaips/platform/xml.h>

#include <array>
#include <vector>

#include "fuzzing.h"

/// Relative child paths, which are walked, against the evaluation of the same as an expression.
namespace {

using ktpnaips::xml::Document;
using ktpnaips::xml::Node;

constexpr std::array<std::string_view, 12> elements{
    "a", "b",   "n:a", "n:b", "n:a-c",           "m:a",
    "o", "o:a", "x:a", "n",   "a xmlns='urn:n'", "n:a xmlns:n='urn:m'"};
constexpr std::array<std::string_view, 8> steps{"n:a", "n:b", "m:a", "n:a-c",
                                                "a",   "x:a", "*",   "n:*"};

/// A document from one byte an opening tag, an end, a text or a comment.
std::string document(fuzz::Input& input) {
  std::string text = "<r xmlns:n='urn:n' xmlns:m='urn:m' xmlns:o='urn:n' xmlns:x='urn:x'>";
  std::vector<std::string_view> open;
  while (!input.isEmpty()) {
    const std::uint8_t byte = input.byte();
    if (byte < 160) {
      const std::string_view element = elements[byte % elements.size()];
      text.append("<").append(element).append(">");
      open.push_back(element.substr(0, element.find(' ')));
    } else if (byte < 240 && !open.empty()) {
      text.append("</").append(open.back()).append(">");
      open.pop_back();
    } else {
      text += byte % 2 == 0 ? "text" : "<!-- n:a -->";
    }
  }
  for (; !open.empty(); open.pop_back()) text.append("</").append(open.back()).append(">");
  return text + "</r>";
}

std::string path(fuzz::Input& input) {
  std::string text;
  for (int count = 1 + input.byte() % 5; count > 0; --count) {
    if (!text.empty()) text += '/';
    text += steps[input.byte() % steps.size()];
  }
  return text;
}

void check(const Node& from, const std::string& relative) {
  const std::vector<Node> walked = from.selectAll(relative);
  fuzz::require(walked == from.selectAll("./" + relative), "a path selects as an expression");
  fuzz::require(from.select(relative) == (walked.empty() ? Node() : walked.front()),
                "the first of a path is the first of all");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::string relative = path(input);
  const Document parsed = Document::parse(document(input));
  fuzz::require(static_cast<bool>(parsed), "what has been put together is well-formed");
  parsed.bindPrefixes(L"xmlns:n='urn:n' xmlns:m='urn:m' xmlns:x='urn:none'");
  const Node root = parsed.documentElement();
  check(parsed, relative);
  check(root, relative);
  for (Node child = root.firstChild(); child; child = child.nextSibling()) check(child, relative);
  return 0;
}
