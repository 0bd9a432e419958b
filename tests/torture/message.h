#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace ktpnaips::test {

/// What goes from one process to another: texts one after the other, each behind its length.
class MessageWriter {
 public:
  void add(std::string_view text) {
    bytes_ += std::to_string(text.size()).append(":").append(text);
  }
  void addNumber(std::size_t number) { add(std::to_string(number)); }
  void addFiles(const std::map<std::string, std::string>& files) {
    addNumber(files.size());
    for (const auto& [name, content] : files) {
      add(name);
      add(content);
    }
  }
  [[nodiscard]] const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

/// Takes them out in the same order.
class MessageReader {
 public:
  explicit MessageReader(std::string_view bytes) : left_(bytes) {}

  std::string text() {
    const std::size_t colon = left_.find(':');
    std::string text(left_.substr(colon + 1, std::stoul(std::string(left_.substr(0, colon)))));
    left_.remove_prefix(colon + 1 + text.size());
    return text;
  }
  std::size_t number() { return std::stoul(text()); }
  std::map<std::string, std::string> files() {
    std::map<std::string, std::string> files;
    for (std::size_t left = number(); left > 0; --left) {
      std::string name = text();
      files[std::move(name)] = text();
    }
    return files;
  }

 private:
  std::string_view left_;
};

}  // namespace ktpnaips::test
