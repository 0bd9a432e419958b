#include "tests/component/side_by_side.h"

#include <filesystem>
#include <stdexcept>

#include "tests/component/component.h"

SideBySide::SideBySide() {
  const std::filesystem::path built = component::path();
  const auto folder = std::filesystem::temp_directory_path() /
                      ("side-by-side-" + std::to_string(GetCurrentProcessId()));
  std::filesystem::create_directories(folder);
  folder_ = folder.wstring();
  for (const char* name : {"KTPNaips.dll", "Brevank.manifest"}) {
    std::filesystem::copy_file(built.parent_path() / name, folder / name,
                               std::filesystem::copy_options::overwrite_existing);
  }
  const std::wstring manifest = (folder / "Brevank.manifest").wstring();
  ACTCTXW description{};
  description.cbSize = sizeof description;
  description.lpSource = manifest.c_str();
  context_ = CreateActCtxW(&description);
  if (context_ == INVALID_HANDLE_VALUE || ActivateActCtx(context_, &cookie_) == 0)
    throw std::runtime_error("the manifest does not activate: " + std::to_string(GetLastError()));
}

SideBySide::~SideBySide() {
  DeactivateActCtx(0, cookie_);
  ReleaseActCtx(context_);
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

bool SideBySide::isLoaded() const {
  return GetModuleHandleW((folder_ + L"\\KTPNaips.dll").c_str()) != nullptr;
}
