#include "cli/masking.h"

namespace cli {
namespace {

constexpr std::string_view mask = "********";

/// Replaces what stands between each `open` and the `close` that follows it; a value that does not
/// end is replaced to the end of the text.
std::string maskedBetween(std::string_view text, std::string_view open, std::string_view close) {
  std::string result;
  for (;;) {
    const auto start = text.find(open);
    if (start == std::string_view::npos) break;
    const auto valueStart = start + open.size();
    const auto end = text.find(close, valueStart);
    result += text.substr(0, valueStart);
    result += mask;
    text.remove_prefix(end == std::string_view::npos ? text.size() : end);
  }
  result += text;
  return result;
}

}  // namespace

std::string masked(std::string_view document) {
  // The element's text may look like the attribute; the attribute's value has no "<".
  const std::string text = maskedBetween(document, "<ndd:new-password>", "</ndd:new-password>");
  return maskedBetween(text, " password=\"", "\"");
}

}  // namespace cli
