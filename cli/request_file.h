#pragma once

#include "cli/json.h"

#include <ktpnaips/core/date_time.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cli {

/// What a request file holds, in the order in which it stands there.
// NOLINTNEXTLINE(bugprone-exception-escape): a JSON value is moved without exceptions
struct FileNode {
  Json value;                      ///< of a list or an object: an empty one
  std::string key;                 ///< of a member of an object
  std::size_t line = 0;            ///< from 1: where its key stands, or it starts
  std::vector<FileNode> children;  ///< elements or members
};

/// A value of a request file, with its path there. What does not fit is refused with a
/// `UsageError` that names file, line and path.
class FileValue {
 public:
  /// The whole content of a file.
  FileValue(const std::string& file, const FileNode& content) : file_(&file), node_(&content) {}

  [[nodiscard]] const std::string& key() const noexcept { return node_->key; }
  [[nodiscard]] bool isNull() const { return node_->value.is_null(); }
  [[nodiscard]] bool isText() const { return node_->value.is_string(); }
  /// Whether it is an object that has the key.
  [[nodiscard]] bool has(std::string_view key) const;

  [[nodiscard]] std::wstring text() const;
  [[nodiscard]] bool truth() const;
  [[nodiscard]] std::int16_t number() const;
  [[nodiscard]] double real() const;
  [[nodiscard]] ktpnaips::DateTime dateTime() const;
  /// The elements of a list.
  [[nodiscard]] std::vector<FileValue> elements() const;
  /// The members of an object.
  [[nodiscard]] std::vector<FileValue> members() const;

  /// Throws `UsageError`: "FILE, line 4: Stages[0].TEET " and the reason.
  [[noreturn]] void refuse(std::string_view reason) const;

 private:
  FileValue(const std::string* file, const FileNode& node, std::string path)
      : file_(file), node_(&node), path_(std::move(path)) {}

  const std::string* file_;
  const FileNode* node_;
  std::string path_;
};

/// A request file: JSON text in UTF-8.
class RequestFile {
 public:
  /// Reads the file, or standard input for "-". Throws `UsageError` when it cannot be read, is not
  /// JSON, is nested too deeply or has a key twice in one object.
  explicit RequestFile(const std::string& file);

  /// Its content, which lives as long as this object.
  [[nodiscard]] FileValue content() const { return {name_, content_}; }

 private:
  std::string name_;
  FileNode content_;
};

}  // namespace cli
