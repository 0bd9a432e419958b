#include <ktpnaips/briefing/temp_files.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/files.h>
#include <ktpnaips/platform/process.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/thread_state.h>

#include <algorithm>
#include <exception>
#include <mutex>
#include <utility>

namespace ktpnaips {
namespace {

// Guards the list of managers and the files of each, since whoever ends the program removes those
// of all threads.
std::mutex filesMutex;
TempFileManager* firstManager = nullptr;
bool isEnding = false;

}  // namespace

/// Removes what threads that are left still have.
struct TempFileManager::AtExit {
  AtExit() {
    platform::aroundForks([] { filesMutex.lock(); }, [] { filesMutex.unlock(); });
  }
  AtExit(const AtExit&) = delete;
  AtExit& operator=(const AtExit&) = delete;
  ~AtExit() {
    const std::lock_guard lock(filesMutex);
    isEnding = true;
    for (auto* each = firstManager; each != nullptr; each = each->next_) each->removeFiles();
  }
};

TempFileManager::TempFileManager() {
  static const AtExit atExit;
  const std::lock_guard lock(filesMutex);
  next_ = std::exchange(firstManager, this);
  if (next_ != nullptr) next_->previous_ = this;
}

TempFileManager::~TempFileManager() {
  const std::lock_guard lock(filesMutex);
  removeFiles();
  (previous_ != nullptr ? previous_->next_ : firstManager) = next_;
  if (next_ != nullptr) next_->previous_ = previous_;
}

void TempFileManager::removeFiles() noexcept {
  for (auto& file : files_) file.remove();
}

std::wstring TempFileManager::CreateTempFile(std::wstring_view prefix) {
  try {
    const std::lock_guard lock(filesMutex);
    if (isEnding) return {};
    files::TemporaryFile file(prefix);
    std::wstring path = file.path();
    if (!path.empty()) files_.push_back(std::move(file));
    return path;
  } catch (const std::exception&) {  // a failure is an empty text
    return {};
  }
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

files::TemporaryFile* TempFileManager::find(std::wstring_view path) {
  const auto found = std::ranges::find(files_, path, &files::TemporaryFile::path);
  return found != files_.end() ? &*found : nullptr;
}

std::wstring TempFileManager::writeProduct(std::wstring_view name, const std::wstring& path,
                                           std::string_view bytes) {
  FreePaths paths;
  return writeProduct(name, path, bytes, paths);
}

std::wstring TempFileManager::writeProduct(std::wstring_view name, const std::wstring& path,
                                           std::string_view bytes, FreePaths& paths) {
  if (find(path) != nullptr) {
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
    files::write(path, files::Create::never, bytes);
  } catch (...) {  // the empty file would pass for the product
    const std::lock_guard lock(filesMutex);
    if (auto* const file = find(path); file != nullptr) file->remove();
    throw;
  }
}

TempFileManager& sharedTempFiles() {
  return platform::threadState<TempFileManager>();
}

}  // namespace ktpnaips
