#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text from outside, character by character.
namespace cli {

/// A character of a UTF-8 text and how many bytes it takes: none at the text's end. A byte that is
/// no UTF-8 is a character of its own, above all others.
struct Character {
  char32_t code = 0;
  std::size_t length = 0;
};

Character characterAt(std::string_view utf8, std::size_t at);

/// How many bytes a character has that begins with this one.
std::size_t lengthOfUtf8(char first);

/// True for what a terminal acts on, or what turns the direction of the text around it: control
/// characters but line feed and tab, and Unicode's controls of direction.
bool isActedOn(char32_t code);

/// The text with "?" in place of each such character.
std::string harmless(std::string_view utf8);

}  // namespace cli
