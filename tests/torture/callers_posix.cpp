#include "tests/torture/callers.h"

#include <dlfcn.h>
#include <execinfo.h>
#include <libxml/xmlversion.h>
#include <link.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ktpnaips::test {
namespace {

/// Where libxml2's code is, so that nothing else is looked up: that takes long.
struct Range {
  std::uintptr_t first = 0;
  std::uintptr_t last = 0;
};
Range rangeOfLibxml2() {
  Range range;
  dl_iterate_phdr(
      [](dl_phdr_info* object, std::size_t, void* found) {
        if (std::string_view(object->dlpi_name).find("/libxml2.") == std::string_view::npos) {
          return 0;
        }
        for (int i = 0; i < object->dlpi_phnum; ++i) {
          const auto& part = object->dlpi_phdr[i];
          if (part.p_type != PT_LOAD || (part.p_flags & PF_X) == 0) continue;
          const std::uintptr_t first = object->dlpi_addr + part.p_vaddr;
          *static_cast<Range*>(found) = {first, first + part.p_memsz};
        }
        return 1;
      },
      &range);
  return range;
}

bool isFunctionOfLibxml2(void* address, std::string_view name) {
  static const Range range = rangeOfLibxml2();
  const auto bits = reinterpret_cast<std::uintptr_t>(address);  // NOLINT: compared
  if (bits < range.first || bits > range.last) return false;
  Dl_info found{};
  return dladdr(address, &found) != 0 && found.dli_sname != nullptr && found.dli_sname == name;
}

}  // namespace

bool Caller::isOf(std::string_view start) const {
  return std::string_view(library).starts_with(start);
}

Caller callerOf(void* returnAddress) {
  const Uncounted uncounted;
  Caller caller;
  std::array<void*, 64> frames{};
  const auto end = frames.begin() + backtrace(frames.data(), static_cast<int>(frames.size()));
  for (auto at = std::find(frames.begin(), end, returnAddress); at != end; ++at) {
    Dl_info found{};
    if (dladdr(*at, &found) == 0) break;
    const char* const library = found.dli_fname + std::string_view(found.dli_fname).rfind('/') + 1;
    const std::string_view name = library;
    const std::string_view function = found.dli_sname != nullptr ? found.dli_sname : "";
    if (function == "_dl_allocate_tls") return {library, found.dli_sname};
    const bool isForOthers = name.starts_with("libc.") || name.starts_with("libstdc++.") ||
                             name.starts_with("ld-") || function.starts_with("CRYPTO_");
    if (isForOthers) continue;
    if (!name.starts_with("lib") || (*caller.library != '\0' && name != caller.library)) break;
    caller.library = library;
    if (function.empty()) continue;  // one that has no name outside of its library
    caller.function = found.dli_sname;
    break;
  }
  return caller;
}

bool isFatalToLibxml2(bool isLasting) {
  const Uncounted uncounted;
  std::array<void*, 64> frames{};
  const auto end = frames.begin() + backtrace(frames.data(), static_cast<int>(frames.size()));
  const bool evaluates = LIBXML_VERSION < 21300 && std::any_of(frames.begin(), end, [](void* each) {
                           return isFunctionOfLibxml2(each, "xmlXPathEval") ||
                                  isFunctionOfLibxml2(each, "xmlXPathEvalExpression");
                         });
  const bool makesState =
      LIBXML_VERSION < 21200 && isLasting && std::any_of(frames.begin(), end, [](void* each) {
        return isFunctionOfLibxml2(each, "xmlGetGlobalState");
      });
  return evaluates || makesState;
}

}  // namespace ktpnaips::test
