#include "simulator/data/text.h"

#include <algorithm>

namespace sim {

namespace {

char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::string upperCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), upper);
  return result;
}

std::string trimmedUpperCase(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) {
    return {};
  }
  return upperCase(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::vector<std::string_view> words(std::string_view text) {
  std::vector<std::string_view> result;
  for (std::size_t at = text.find_first_not_of(' '); at != std::string_view::npos;
       at = text.find_first_not_of(' ', at)) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    result.push_back(text.substr(at, end - at));
    at = end;
  }
  return result;
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return upper(a) == upper(b); });
}

}  // namespace sim
