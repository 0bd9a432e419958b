#include <ktpnaips/briefing/temp_files.h>
#include <ktpnaips/core/failure_report.h>
#include <ktpnaips/platform/files.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>

#include "fuzzing.h"
#include "scratch.h"

/// From a product's type to its file: it never leaves the folder, and its number is the first free
/// one, as trying them one by one finds it.
namespace {

constexpr std::string_view content = "content";

std::wstring numbered(const std::wstring& folder, std::wstring_view name, unsigned number) {
  const auto extension = std::min(name.rfind(L'.'), name.size());
  std::wstring path = folder;
  path += name.substr(0, extension);
  path += std::to_wstring(number);
  path += name.substr(extension);
  return path;
}

/// Makes files of the numbers that the bits stand for, from 1 on.
void occupy(const std::wstring& folder, std::wstring_view name, unsigned taken) {
  for (unsigned number = 1; taken != 0; ++number, taken >>= 1U) {
    if (taken % 2 == 0) continue;
    ktpnaips::files::write(numbered(folder, name, number), ktpnaips::files::Create::exclusively,
                           {});
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Scratch scratch;
  ktpnaips::setFailureReporter([](std::wstring_view) {});
  fuzz::Input input(data, size);
  const unsigned taken = input.byte() % 8;
  const std::wstring name = L"NAIPS." + ktpnaips::text::fromUtf8(input.rest());
  ktpnaips::FreePaths paths;
  const std::wstring folder = paths.folder();
  const bool isPlain = ktpnaips::files::isPlainName(name);
  try {
    if (isPlain) occupy(folder, name, taken);
    auto& files = ktpnaips::sharedTempFiles();
    const std::wstring chosen = files.GetUniqueFilename(name, paths);
    const std::wstring written = files.writeProduct(name, chosen, content, paths);
    fuzz::require(isPlain, "only a plain name is written");
    unsigned number = 1;
    while ((taken >> (number - 1) & 1U) != 0) ++number;
    fuzz::require(written == numbered(folder, name, number), "the first free number is taken");
  } catch (const ktpnaips::RuntimeFault& fault) {
    fuzz::require(isPlain ? fault.number() == ktpnaips::fault::pathFileAccess
                          : fault.number() == ktpnaips::fault::badFileName,
                  "a name is refused for what it is, or by the file system for its length");
  }
  fuzz::require(scratch.holdsProductsOnly(), "products stay in their folder");
  return 0;
}
