#include "cli/out_folder.h"

#include "cli/paths.h"
#include "cli/usage_error.h"

#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <filesystem>
#include <system_error>

namespace cli {
namespace {

namespace fs = std::filesystem;

fs::path numbered(const fs::path& folder, const fs::path& name, int number) {
  if (number == 0) return folder / name;
  fs::path result = folder / name.stem();
  result += fmt::format("-{}", number);
  result += name.extension();
  return result;
}

}  // namespace

void prepareOutFolder(const std::string& folder) {
  std::error_code error;
  fs::create_directories(pathOf(folder), error);
  if (!fs::is_directory(pathOf(folder), error)) {
    throw UsageError(fmt::format("--out \"{}\" is not a folder and cannot be made one", folder));
  }
}

std::wstring copyInto(const std::string& folder, const std::wstring& file,
                      const std::string& name) {
  const fs::path source = pathOf(ktpnaips::text::toUtf8(file));
  const fs::path wanted = name.empty() ? source.filename() : pathOf(name);
  for (int number = 0;; ++number) {
    const fs::path target = numbered(fs::absolute(pathOf(folder)), wanted, number);
    std::error_code error;
    if (fs::copy_file(source, target, fs::copy_options::none, error)) {
      return ktpnaips::text::fromUtf8(pathText(target));
    }
    if (error != std::errc::file_exists) {
      throw std::runtime_error(fmt::format("The file {} could not be copied into {}: {}.",
                                           ktpnaips::text::toUtf8(file), folder, error.message()));
    }
  }
}

}  // namespace cli
