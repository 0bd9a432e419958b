#include <ktpnaips/briefing/temp_files.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/files.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/thread_state.h>

#include <algorithm>
#include <cstdint>

namespace ktpnaips {
namespace {

std::wstring dataFolder() {
  const std::wstring applicationData = files::applicationDataFolder();
  if (applicationData.empty()) return {};
  return applicationData + files::separator + L"VelmoraSoftware" + files::separator;
}

/// The paths that a name has in a folder, one for each number.
class NumberedPaths {
 public:
  NumberedPaths(const std::wstring& folder, std::wstring_view name) {
    const auto point = std::min(name.rfind(L'.'), name.size());
    start_ = folder + std::wstring(name.substr(0, point));
    extension_ = name.substr(point);
  }

  /// The next path that nothing visible occupies.
  std::wstring nextFree() {
    std::wstring path;
    do {
      path = start_ + std::to_wstring(++number_) + extension_;
    } while (files::isVisible(path));
    return path;
  }

 private:
  std::wstring start_;
  std::wstring extension_;
  std::int64_t number_ = 0;
};

}  // namespace

TempFileManager::~TempFileManager() {
  for (const auto& file : files_) {
    if (files::exists(file)) files::remove(file);
  }
}

std::wstring TempFileManager::CreateTempFile(std::wstring_view prefix) {
  std::wstring& path = files_.emplace_back();
  path = files::createTemporary(prefix);
  if (!path.empty()) return path;
  files_.pop_back();
  return {};
}

std::wstring TempFileManager::GetUniqueFilename(std::wstring_view name) {
  return trapped<std::wstring>(inClass(L"GetUniqueFilename", L"TempFileManager"),
                               [&](std::wstring& path) {
                                 if (name.empty()) return;
                                 const std::wstring folder = dataFolder();
                                 if (folder.empty()) {
                                   path = sharedTempFiles().CreateTempFile(L"KTP");
                                   return;
                                 }
                                 files::createFolders(folder);
                                 path = NumberedPaths(folder, name).nextFree();
                               });
}

bool TempFileManager::isTemporary(std::wstring_view path) const {
  return std::ranges::find(files_, path) != files_.end();
}

std::wstring TempFileManager::writeProduct(std::wstring_view name, const std::wstring& path,
                                           std::string_view bytes) const {
  if (isTemporary(path)) {
    files::write(path, files::Create::orTruncate, bytes);
    return path;
  }
  if (!files::isPlainName(name)) throw RuntimeFault(fault::badFileName);
  std::wstring target = path;
  NumberedPaths paths(dataFolder(), name);
  while (!files::write(target, files::Create::exclusively, bytes)) target = paths.nextFree();
  return target;
}

TempFileManager& sharedTempFiles() {
  return platform::threadState<TempFileManager>();
}

}  // namespace ktpnaips
