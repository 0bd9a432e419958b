#include "cli/file_tree.h"

#include "cli/text_output.h"
#include "cli/usage_error.h"

#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace cli {
namespace {

constexpr std::size_t deepest = 100;

/// Counts the lines of the text while the parser reads it.
struct LineCount {
  std::size_t lineEnds = 0;
  char last = '\0';

  void take(char c) {
    last = c;
    if (c == '\n') ++lineEnds;
  }
  /// The line of what has just been read. A number has been read only when the character after it
  /// has been, which may be a line end.
  [[nodiscard]] std::size_t line() const { return lineEnds + (last == '\n' ? 0 : 1); }
};

/// The characters of the text, counted as they are passed.
struct CountingIterator {
  using iterator_category = std::forward_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  const char* at;
  LineCount* count;

  const char& operator*() const { return *at; }
  CountingIterator& operator++() {
    count->take(*at++);
    return *this;
  }
  friend bool operator==(const CountingIterator& a, const CountingIterator& b) {
    return a.at == b.at;
  }
};

/// A list or an object that has not ended yet.
struct Open {
  FileNode node;
  std::string path;
  std::set<std::string, std::less<>> keys;
};

/// Makes nodes of what the parser reports.
class TreeBuilder : public nlohmann::json_sax<Json> {
 public:
  TreeBuilder(const std::string& file, const LineCount& lines) : file_(file), lines_(lines) {}

  FileNode take() { return std::move(root_); }

  bool null() override { return add(nullptr); }
  bool boolean(bool value) override { return add(value); }
  bool number_integer(number_integer_t value) override { return add(value); }
  bool number_unsigned(number_unsigned_t value) override { return add(value); }
  bool number_float(number_float_t value, const string_t&) override { return add(value); }
  bool string(string_t& value) override { return add(std::move(value)); }
  bool binary(binary_t&) override { return false; }  // not in JSON text

  bool start_object(std::size_t) override { return start(Json::object()); }
  bool end_object() override { return end(); }
  bool start_array(std::size_t) override { return start(Json::array()); }
  bool end_array() override { return end(); }

  bool key(string_t& value) override {
    Open& object = open_.back();
    key_ = value;
    keyLine_ = lines_.line();
    if (!object.keys.insert(value).second) {
      refuseAt(file_, keyLine_, memberPath(object.path, value), "stands twice");
    }
    return true;
  }

  bool parse_error(std::size_t, const std::string&,
                   const nlohmann::detail::exception& error) override {
    std::string_view reason = error.what();  // "[...] parse error at line 1, column 2: reason"
    for (const std::string_view before : {"] ", "parse error at ", ": "}) {
      const auto found = reason.find(before);
      if (found != std::string_view::npos) reason.remove_prefix(found + before.size());
    }
    refuseAt(file_, lines_.line(), "the content", fmt::format("is not JSON: {}", reason));
  }

 private:
  [[nodiscard]] bool isInObject() const {
    return !open_.empty() && open_.back().node.value.is_object();
  }

  FileNode made(Json value) {
    FileNode node;
    node.value = std::move(value);
    node.line = isInObject() ? keyLine_ : lines_.line();
    if (isInObject()) node.key = std::move(key_);
    return node;
  }

  bool add(Json value) {
    place(made(std::move(value)));
    return true;
  }

  void place(FileNode node) {
    (open_.empty() ? root_ : open_.back().node.children.emplace_back()) = std::move(node);
  }

  [[nodiscard]] std::string pathOfNext() const {
    if (open_.empty()) return {};
    const Open& parent = open_.back();
    return isInObject() ? memberPath(parent.path, key_)
                        : elementPath(parent.path, parent.node.children.size());
  }

  bool start(Json value) {
    std::string path = pathOfNext();
    FileNode node = made(std::move(value));
    if (open_.size() == deepest) refuseAt(file_, node.line, path, "is nested too deeply");
    open_.push_back({std::move(node), std::move(path), {}});
    return true;
  }

  bool end() {
    FileNode node = std::move(open_.back().node);
    open_.pop_back();
    place(std::move(node));
    return true;
  }

  const std::string& file_;
  const LineCount& lines_;
  FileNode root_;
  std::vector<Open> open_;
  std::string key_;
  std::size_t keyLine_ = 0;
};

}  // namespace

std::string memberPath(const std::string& path, const std::string& key) {
  return path.empty() ? key : path + "." + key;
}

std::string elementPath(const std::string& path, std::size_t index) {
  return fmt::format("{}[{}]", path, index);
}

void refuseAt(const std::string& file, std::size_t line, const std::string& path,
              std::string_view reason) {
  const auto visible = [](std::string_view text) {
    return oneLine(ktpnaips::text::fromUtf8(text));
  };
  throw UsageError(fmt::format("{}, line {}: {} {}", file, line, visible(path), visible(reason)));
}

FileNode parseTree(const std::string& text, const std::string& file) {
  LineCount lines;
  TreeBuilder builder(file, lines);
  const char* const start = text.data();
  Json::sax_parse(CountingIterator{start, &lines}, CountingIterator{start + text.size(), &lines},
                  &builder);
  return builder.take();
}

}  // namespace cli
