#include <ktpnaips/platform/posix/http_answer.h>

#include <optional>

#include "fuzzing.h"

/// The header lines of answers, which a server chooses freely.
namespace {

using ktpnaips::http::Info;

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  ktpnaips::http::AnswerHeaders headers;
  while (!input.isEmpty()) {
    const bool wasComplete = headers.complete();
    const std::string line = input.before('\n') + '\n';
    headers.add(line);
    fuzz::require(!wasComplete || headers.complete() || line.starts_with("HTTP/"),
                  "only another answer follows the end of one");
    for (const Info what : {Info::contentType, Info::statusCode, Info::rawHeaders}) {
      const auto value = headers.query(what);
      fuzz::require(!value || headers.complete(), "nothing is told before the end");
      fuzz::require(
          !value || what == Info::statusCode || value->size() <= ktpnaips::http::longestQueryValue,
          "a value that does not fit is left out");
    }
    fuzz::require(!headers.complete() || !headers.statusCode().starts_with('1'),
                  "an interim answer is passed over");
  }
  return 0;
}
