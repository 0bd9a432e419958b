#include "cli/messages.h"

#include "cli/characters.h"
#include "cli/emphasis.h"
#include "cli/secrets.h"

#include <cstddef>
#include <cstdio>
#include <string>

namespace cli {

using ktpnaips::terminal::Stream;

void writeMessage(std::string_view text) {
  const std::size_t written = std::fwrite(text.data(), 1, text.size(), stderr);
  static_cast<void>(written);  // there is nobody else to tell
}

void complain(std::string_view text) {
  writeMessage(harmless(withoutSecrets(text)) + '\n');
}

void complainOfError(std::string_view sentence) {
  writeMessage(emphasised(Stream::error, Emphasis::alarm, "naips:") + ' ');
  complain(sentence);
}

}  // namespace cli
