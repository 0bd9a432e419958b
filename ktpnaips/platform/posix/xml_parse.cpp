#include <ktpnaips/platform/posix/xml_document.h>
#include <ktpnaips/platform/posix/xml_library.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>
#include <ktpnaips/platform/xml_common.h>
#include <ktpnaips/platform/xml_refusal.h>

#include <libxml/parser.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace ktpnaips::xml {
namespace {

// libxml2 searches them one by one: time is not to grow with the square of the text.
constexpr int mostNamespaces = 1000;
// 128 MB of entries; an answer of 100,000 entries takes less than an eighth of that.
constexpr std::size_t mostNodes = std::size_t{1} << 22U;
constexpr std::wstring_view tooManyNodes = L"the document has more than 4 million nodes";

constexpr std::wstring_view tooManyNames =
    L"the names of elements and attributes are too many or too long";
constexpr std::size_t mostNames = 50'000;
// More than libxml2 takes at a time, but for long names.
constexpr std::size_t enoughMemory = std::size_t{1} << 20U;
// A shorter one is copied: most of an answer is markup.
constexpr std::size_t longText = 4096;

bool isWhiteSpace(std::string_view text) {
  return std::ranges::all_of(
      text, [](char c) { return c == '\x20' || c == '\x9' || c == '\xA' || c == '\xD'; });
}

enum class Verdict {
  accepted,
  refused,     ///< for what is here
  wrong,       ///< for what libxml2 says
  lacksMemory  ///< for names, or for want of memory
};

/// Fills a tree with what libxml2 reads.
class Builder {
 public:
  /// Of a text that the tree has taken over, or that stays where it is.
  Builder(Tree& tree, std::string_view source, bool isTakenOver)
      : tree_(tree), source_(source), isTakenOver_(isTakenOver) {}

  Verdict parse(ParseFailure& failure) {
    const Parser parser = newParser(handlerOfAll(), this);
    parser_ = parser.get();
    parseText(parser.get(), source_);
    failure = {};
    if (isOutOfMemory_) throw std::bad_alloc();
    if (!refusal_.empty()) {
      failure.reason = refusal_;
      failure.isTooLarge = refusal_ == tooManyNodes;
      return Verdict::refused;
    }
    if (!hasFailed_ && tree_.documentElement() != 0) {
      for (const Index node : withReturns_) tree_.leaveOutReturns(node);
      if (!usesSource_) tree_.giveBack();
      return Verdict::accepted;
    }
    if (lacksMemory_ || exceedsNames(parser.get())) {
      requireMemory(enoughMemory);
      failure.reason = tooManyNames;
      return Verdict::lacksMemory;
    }
    describe(xmlCtxtGetLastError(parser.get()), failure);
    return Verdict::wrong;
  }

 private:
  /// Hands what libxml2 tells to a member, and a failure of it no further.
  template <auto Member, class... Arguments>
  static void told(void* builder, Arguments... arguments) noexcept {
    auto& self = *static_cast<Builder*>(builder);
    if (self.isOutOfMemory_ || !self.refusal_.empty()) return;
    try {
      (self.*Member)(arguments...);
    } catch (const std::bad_alloc&) {
      self.isOutOfMemory_ = true;
    }
    if (self.isOutOfMemory_ || !self.refusal_.empty()) xmlStopParser(self.parser_);
  }

  static xmlSAXHandler handlerOfAll() {
    xmlSAXHandler handler{};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = told<&Builder::startElement>;
    handler.endElementNs = told<&Builder::endElement>;
    handler.characters = handler.ignorableWhitespace = told<&Builder::addText>;
    handler.cdataBlock = told<&Builder::addData>;
    handler.comment = told<&Builder::addComment>;
    handler.processingInstruction = told<&Builder::addInstruction>;
    handler.internalSubset = told<&Builder::refuseDoctype>;
    handler.serror = [](void* builder, auto* error) {
      auto& self = *static_cast<Builder*>(builder);
      if (error->code == XML_ERR_NO_MEMORY) self.lacksMemory_ = true;
      if (error->level >= XML_ERR_ERROR) self.hasFailed_ = true;
    };
    return handler;
  }

  /// An error whose text libxml2 had no memory for is none of the answer's.
  static void describe(const xmlError* error, ParseFailure& failure) {
    std::string reason = error != nullptr ? made(error->message) : "not well-formed";
    while (!reason.empty() && reason.back() == '\n') reason.pop_back();
    failure.reason = text::fromUtf8(reason);
    if (error == nullptr) return;
    failure.line = error->line;
    failure.column = error->int2;
  }

  /// In an encoding that only the parser can read.
  void refuseDoctype(const xmlChar*, const xmlChar*, const xmlChar*) { refusal_ = doctypeRefused; }

  void startElement(const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                    int namespaceCount, const xmlChar** namespaces, int attributeCount, int,
                    const xmlChar** attributes) {
    endText();
    declared_.push_back(namespaceCount);
    namespaces_ += namespaceCount;
    if (declared_.size() > mostLevels) {
      refusal_ = tooDeep;
      return;
    }
    if (namespaces_ > mostNamespaces) {
      refusal_ = L"more than 1,000 namespaces are declared at a time";
      return;
    }
    element_ = addChild(Kind::element, nameOf({name, prefix, uri}));
    Index last = 0;
    for (int i = 0; i < namespaceCount; ++i, namespaces += 2) {
      const Index declaration =
          tree_.names.name(viewOf(namespaces[0]), tree_.names.uri(viewOf(namespaces[1])));
      addAttribute(last, Kind::declaration, declaration, {});
    }
    for (int i = 0; i < attributeCount; ++i, attributes += 5) {
      const Extent value = tree_.keep(
          {asChars(attributes[3]), static_cast<std::size_t>(attributes[4] - attributes[3])});
      addAttribute(last, Kind::attribute, nameOf({attributes[0], attributes[1], attributes[2]}),
                   value);
    }
  }

  void endElement(const xmlChar*, const xmlChar*, const xmlChar*) {
    endText();
    namespaces_ -= declared_.back();
    declared_.pop_back();
    element_ = tree_[element_].parent;
  }

  void addText(const xmlChar* text, int length) {
    const std::string_view piece(asChars(text), static_cast<std::size_t>(length));
    if (text_.at == Extent::nowhere) {
      if (inSource_.empty() && isInSource(piece)) {
        inSource_ = piece;
        return;
      }
      if (!inSource_.empty() && goesOn(piece)) {
        inSource_ = {inSource_.data(), piece.data() + piece.size()};
        return;
      }
      text_ = keepFromSource();
    }
    tree_.extend(text_, piece);
  }

  void addData(const xmlChar* text, int length) {
    endText();
    addChild(Kind::data, 0, tree_.keep({asChars(text), static_cast<std::size_t>(length)}));
  }

  void addComment(const xmlChar* text) {
    endText();
    addChild(Kind::comment, 0, tree_.keep(viewOf(text)));
  }

  void addInstruction(const xmlChar* target, const xmlChar* text) {
    endText();
    addChild(Kind::instruction, tree_.names.name(viewOf(target), 0),
             text != nullptr ? tree_.keep(viewOf(text)) : Extent());
  }

  Index add(Kind kind, Index name, Index parent, Extent text) {
    if (tree_.size() >= mostNodes) refusal_ = tooManyNodes;
    return tree_.add(kind, name, parent, text);
  }

  Index addChild(Kind kind, Index name, Extent text = {}) {
    const Index node = add(kind, name, element_, text);
    tree_.linkChild(node);
    return node;
  }

  void addAttribute(Index& last, Kind kind, Index name, Extent value) {
    const Index node = add(kind, name, element_, value);
    tree_.linkAttribute(node, last);
    last = node;
  }

  /// libxml2's own copies of a name; one address for each while it parses.
  struct ParsedName {
    const xmlChar* local;
    const xmlChar* prefix;
    const xmlChar* uri;
    friend bool operator==(const ParsedName&, const ParsedName&) = default;
  };

  Index nameOf(const ParsedName& parsed) {
    const auto hash = std::hash<const void*>()(parsed.local) * std::uint64_t{0x9E3779B97F4A7C15};
    auto& [known, name] = lastNames_[(hash >> 32U) % lastNames_.size()];
    if (known == parsed) return name;
    std::string qualified;
    if (parsed.prefix != nullptr) qualified.append(viewOf(parsed.prefix)).append(":");
    qualified.append(viewOf(parsed.local));
    name = tree_.names.name(qualified, tree_.names.uri(viewOf(parsed.uri)));
    known = parsed;
    if (tree_.names.size() > mostNames) refusal_ = tooManyNames;
    return name;
  }

  [[nodiscard]] bool isInSource(std::string_view piece) const {
    const std::less<> isBefore;
    return !isBefore(piece.data(), source_.data()) &&
           isBefore(piece.data(), source_.data() + source_.size());
  }

  /// True when the piece follows the text so far, but for the CR of a line end.
  [[nodiscard]] bool goesOn(std::string_view piece) const {
    const char* end = inSource_.data() + inSource_.size();
    return piece.data() == end || (*end == '\r' && piece.data() == end + 1);
  }

  Extent keepFromSource() {
    Extent kept = tree_.keep({});
    for (auto rest = std::exchange(inSource_, {}); !rest.empty();) {
      const auto end = std::min(rest.find('\r'), rest.size());
      tree_.extend(kept, rest.substr(0, end));
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return kept;
  }

  /// Text is a node unless it is white space only.
  void endText() {
    const bool staysInPlace =
        isTakenOver_ && inSource_.size() >= longText && !isWhiteSpace(inSource_);
    const bool hasReturns = staysInPlace && inSource_.find('\r') != std::string_view::npos;
    if (staysInPlace) {
      usesSource_ = true;
      text_ = {static_cast<std::uint32_t>(inSource_.data() - source_.data()),
               static_cast<std::uint32_t>(inSource_.size())};
    } else if (!inSource_.empty() && !isWhiteSpace(inSource_)) {
      text_ = keepFromSource();
    }
    inSource_ = {};
    const Extent text = std::exchange(text_, {});
    if (text.at == Extent::nowhere || isWhiteSpace(tree_.viewOf(text))) return;
    Index node = element_;
    if (tree_[node].firstChild == 0 && !tree_[node].hasText()) {
      tree_.setText(node, text);
    } else {
      node = addChild(Kind::text, 0, text);
    }
    if (hasReturns) withReturns_.push_back(node);
  }

  Tree& tree_;
  std::string_view source_;
  bool isTakenOver_;
  xmlParserCtxtPtr parser_ = nullptr;
  std::wstring_view refusal_;  ///< why the parser has been stopped
  bool isOutOfMemory_ = false;
  bool lacksMemory_ = false;  ///< as libxml2 says, also of names for which it may not take any
  bool hasFailed_ = false;
  Index element_ = 0;               ///< the innermost that is open
  std::vector<int> declared_;       ///< the namespaces that each of the open elements declares
  int namespaces_ = 0;              ///< their sum
  std::string_view inSource_;       ///< the text since the last markup while it is as in the source
  Extent text_;                     ///< the same when it is not
  bool usesSource_ = false;         ///< a node has a part of the text that was taken over
  std::vector<Index> withReturns_;  ///< the nodes whose part of it has CRs in its line ends
  std::array<std::pair<ParsedName, Index>, 64> lastNames_{};
};

/// Parses a text that `taken`, if given, is: it then goes into the document.
Document parsed(const std::string& text, std::string* taken, ParseFailure* failure) {
  ParseFailure ignored;
  ParseFailure& why = failure != nullptr ? *failure : ignored;
  why = {};
  why.reason = refusalBeforeParsing(text);
  if (!why.reason.empty()) return {};
  // A failed allocation can look like a mistake in the text: what is refused is read once more.
  Verdict before = Verdict::accepted;
  for (int i = 0; i < 2; ++i) {
    auto owner = std::make_unique<SharedDocument>();
    Tree& tree = owner->tree;
    tree.reserve(text.size());
    if (taken != nullptr) tree.takeOver(std::move(*taken));
    const std::string_view source = taken != nullptr ? tree.takenOver() : text;
    const Verdict verdict = Builder(tree, source, taken != nullptr).parse(why);
    if (verdict == Verdict::accepted) return NodeAccess::makeDocument(*owner.release());
    if (taken != nullptr) *taken = tree.giveBack();
    if (verdict == Verdict::refused) break;
    const bool isNew = i > 0 && before != Verdict::lacksMemory;
    if (verdict == Verdict::lacksMemory && isNew) throw std::bad_alloc();
    before = verdict;
  }
  return {};
}

}  // namespace

Document Document::parse(const std::string& text, ParseFailure* failure) {
  return parsed(text, nullptr, failure);
}

Document Document::parseInPlace(std::string& text, ParseFailure* failure) {
  return parsed(text, &text, failure);
}

}  // namespace ktpnaips::xml
