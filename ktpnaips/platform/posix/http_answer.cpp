#include <ktpnaips/platform/posix/http_answer.h>

#include <algorithm>
#include <charconv>
#include <system_error>

namespace ktpnaips::http {

namespace {

char lowered(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::optional<std::size_t> numberIn(std::string_view text) {
  std::size_t number = 0;
  const auto [stop, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || stop != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<std::string> ifFits(const std::string& value) {
  if (value.size() > longestQueryValue) return std::nullopt;
  return value;
}

}  // namespace

bool sameName(std::string_view one, std::string_view other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](char a, char b) { return lowered(a) == lowered(b); });
}

std::string_view trimBlanks(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

void AnswerHeaders::clear() {
  *this = AnswerHeaders();
}

void AnswerHeaders::add(std::string_view line) {
  while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
  if (line.starts_with("HTTP/")) return start(line);
  if (complete_) return;
  if (line.empty()) return finish();
  addField(line);
  addRaw(line);
}

void AnswerHeaders::start(std::string_view statusLine) {
  clear();
  const std::string_view afterVersion =
      trimBlanks(statusLine.substr(std::min(statusLine.find(' '), statusLine.size())));
  statusCode_ = afterVersion.substr(0, afterVersion.find(' '));
  addRaw(statusLine);
}

void AnswerHeaders::finish() {
  if (statusCode_.starts_with('1')) return clear();
  addRaw({});
  complete_ = true;
}

void AnswerHeaders::addField(std::string_view line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return;
  const std::string_view name = line.substr(0, colon);
  const std::string_view value = trimBlanks(line.substr(colon + 1));
  if (!contentType_ && sameName(name, "Content-Type")) contentType_ = value;
  if (sameName(name, "Content-Length")) bodySize_ = numberIn(value);
  if (sameName(name, "Transfer-Encoding")) isChunked_ = sameName(value, "chunked");
}

// What is too long is never asked for: no more of it is kept than shows that.
void AnswerHeaders::addRaw(std::string_view line) {
  if (raw_.size() > longestQueryValue) return;
  raw_.append(line.substr(0, longestQueryValue)).append("\r\n");
}

std::optional<std::string> AnswerHeaders::query(Info what) const {
  if (!complete_) return std::nullopt;
  switch (what) {
    case Info::contentType:
      return contentType_ ? ifFits(*contentType_) : std::nullopt;
    case Info::statusCode:
      return statusCode_;
    case Info::rawHeaders:
      return ifFits(raw_);
  }
  return std::nullopt;
}

}  // namespace ktpnaips::http
