#include <ktpnaips/briefing/temp_files.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/files.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/thread_state.h>

#include <algorithm>

namespace ktpnaips {

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
  FreePaths paths;
  return GetUniqueFilename(name, paths);
}

std::wstring TempFileManager::GetUniqueFilename(std::wstring_view name, FreePaths& paths) {
  return trapped<std::wstring>(
      inClass(L"GetUniqueFilename", L"TempFileManager"), [&](std::wstring& path) {
        if (name.empty()) return;
        path =
            paths.folder().empty() ? sharedTempFiles().CreateTempFile(L"KTP") : paths.choose(name);
      });
}

bool TempFileManager::isTemporary(std::wstring_view path) const {
  return std::ranges::find(files_, path) != files_.end();
}

std::wstring TempFileManager::writeProduct(std::wstring_view name, const std::wstring& path,
                                           std::string_view bytes) const {
  FreePaths paths;
  return writeProduct(name, path, bytes, paths);
}

std::wstring TempFileManager::writeProduct(std::wstring_view name, const std::wstring& path,
                                           std::string_view bytes, FreePaths& paths) const {
  if (isTemporary(path)) {
    writeTemporary(path, bytes);
    return path;
  }
  if (!files::isPlainName(name)) throw RuntimeFault(fault::badFileName);
  std::wstring target = path;
  while (!files::write(target, files::Create::exclusively, bytes)) {
    target = paths.chooseAfter(name, target);
  }
  return target;
}

void TempFileManager::writeTemporary(const std::wstring& path, std::string_view bytes) {
  try {
    files::write(path, files::Create::orTruncate, bytes);
  } catch (...) {  // the empty file would pass for the product
    files::remove(path);
    throw;
  }
}

TempFileManager& sharedTempFiles() {
  return platform::threadState<TempFileManager>();
}

}  // namespace ktpnaips
