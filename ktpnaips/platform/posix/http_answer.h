#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include <ktpnaips/platform/http.h>

namespace ktpnaips::http {

/// Collects the header lines of the last answer that arrives; 1xx answers are passed over.
class AnswerHeaders {
 public:
  void clear();
  /// One line as it arrived, with its line end. Trailers, after the empty line, are ignored.
  void add(std::string_view line);
  [[nodiscard]] bool complete() const { return complete_; }
  [[nodiscard]] const std::string& statusCode() const { return statusCode_; }
  [[nodiscard]] std::optional<std::string> query(Info what) const;
  /// What Content-Length says, if it is a number.
  [[nodiscard]] std::optional<std::size_t> bodySize() const { return bodySize_; }
  [[nodiscard]] bool isChunked() const { return isChunked_; }

 private:
  void start(std::string_view statusLine);
  void finish();
  void addField(std::string_view line);
  void addRaw(std::string_view line);

  bool complete_ = false;
  std::string statusCode_;
  std::optional<std::string> contentType_;
  std::optional<std::size_t> bodySize_;
  bool isChunked_ = false;
  std::string raw_;
};

/// Whether two header names are the same, whatever their case.
bool sameName(std::string_view one, std::string_view other);

/// The text without the blanks around it.
std::string_view trimBlanks(std::string_view text);

}  // namespace ktpnaips::http
