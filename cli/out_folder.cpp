#include "cli/out_folder.h"

#include "cli/part_file.h"
#include "cli/paths.h"
#include "cli/usage_error.h"

#include <ktpnaips/platform/text.h>

#include <fmt/format.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <ios>
#include <iterator>
#include <stdexcept>
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

std::string contentOf(const fs::path& file) {
  errno = 0;
  std::ifstream stream(file, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(stream), {}};
  if (!stream) throw std::system_error(errno, std::generic_category());
  return content;
}

/// Writes a file under this name, or a numbered one when that is taken.
fs::path placed(const std::string& content, const fs::path& folder, const fs::path& name) {
  PartFile part(folder / name);
  part.write(content);
  for (int number = 0;; ++number) {
    fs::path target = numbered(folder, name, number);
    if (part.moveToNew(target)) return target;
  }
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
  try {
    return ktpnaips::text::fromUtf8(
        pathText(placed(contentOf(source), fs::absolute(pathOf(folder)), wanted)));
  } catch (const std::system_error& failure) {
    throw std::runtime_error(fmt::format("The file {} could not be copied into {}: {}.",
                                         ktpnaips::text::toUtf8(file), folder,
                                         failure.code().message()));
  }
}

}  // namespace cli
