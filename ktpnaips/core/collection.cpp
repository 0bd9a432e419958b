#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/conversions.h>
#include <ktpnaips/platform/runtime_fault.h>

#include <limits>

namespace ktpnaips {

std::int16_t countOf(std::size_t size) {
  if (size > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
    throw RuntimeFault(fault::overflow);
  }
  return static_cast<std::int16_t>(size);
}

void addCleanedWithin(std::size_t limit, std::vector<std::wstring>& list, std::wstring_view text) {
  if (auto cleaned = Utils::cleanString(text); !cleaned.empty()) {
    addWithin(limit, list, std::move(cleaned));
  }
}

}  // namespace ktpnaips
