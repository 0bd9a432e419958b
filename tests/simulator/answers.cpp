#include "tests/simulator/answers.h"

#include <gtest/gtest.h>
#include <openssl/evp.h>

#include <algorithm>

namespace simtest {

std::vector<std::string> texts(std::string_view answer, std::string_view element) {
  const std::string begin = "<naips:" + std::string(element);
  const std::string end = "</naips:" + std::string(element) + ">";
  std::vector<std::string> found;
  for (std::size_t at = answer.find(begin); at != std::string_view::npos;
       at = answer.find(begin, at + 1)) {
    const char next = answer[at + begin.size()];
    if (next != '>' && next != ' ') {
      continue;
    }
    const std::size_t text = answer.find('>', at) + 1;
    const std::size_t close = answer.find('<', text);
    if (answer.substr(close, end.size()) == end) {
      found.emplace_back(answer.substr(text, close - text));
    }
  }
  return found;
}

std::string text(std::string_view answer, std::string_view element) {
  const std::vector<std::string> found = texts(answer, element);
  EXPECT_EQ(found.size(), 1U) << element << " in " << answer;
  return found.empty() ? std::string() : found.front();
}

std::string decodeBase64(std::string_view lines) {
  std::string encoded(lines);
  std::erase_if(encoded, [](char c) { return c == '\r' || c == '\n'; });
  std::string bytes(encoded.size() / 4 * 3, '\0');
  const int size = EVP_DecodeBlock(reinterpret_cast<unsigned char*>(bytes.data()),
                                   reinterpret_cast<const unsigned char*>(encoded.data()),
                                   static_cast<int>(encoded.size()));
  EXPECT_GE(size, 0);
  bytes.resize(bytes.size() -
               static_cast<std::size_t>(std::count(encoded.begin(), encoded.end(), '=')));
  return bytes;
}

}  // namespace simtest
