#include <ktpnaips/briefing/free_paths.h>
#include <ktpnaips/platform/files.h>

#include <algorithm>
#include <utility>

namespace ktpnaips {
namespace {

constexpr std::wstring_view digits = L"0123456789";

std::wstring dataFolder() {
  std::wstring folder = files::applicationDataFolder();
  if (folder.empty()) return folder;
  folder += files::separator;
  folder += L"VelmoraSoftware";
  folder += files::separator;
  files::createFolders(folder);
  return folder;
}

std::size_t extensionOf(std::wstring_view name) {
  return std::min(name.rfind(L'.'), name.size());
}

/// The number that stands before the extension and the name without it; 0 when there is none.
std::size_t splitNumber(std::wstring_view fileName, std::wstring& name) {
  const auto extension = extensionOf(fileName);
  const auto start = fileName.substr(0, extension).find_last_not_of(digits) + 1;
  const auto text = fileName.substr(start, extension - start);
  if (text.empty() || text.front() == L'0' || text.size() > 9) return 0;
  name = fileName.substr(0, start);
  name += fileName.substr(extension);
  std::size_t number = 0;
  for (const wchar_t digit : text) number = number * 10 + static_cast<std::size_t>(digit - L'0');
  return number;
}

}  // namespace

const std::wstring& FreePaths::folder() {
  if (!folder_) folder_ = dataFolder();
  return *folder_;
}

void FreePaths::list() {
  std::unordered_map<std::wstring, std::vector<std::size_t>> found;
  std::wstring name;
  files::forEachVisible(folder(), [&](std::wstring_view fileName) {
    if (const auto number = splitNumber(fileName, name); number > 0) found[name].push_back(number);
  });
  auto& listed = listed_.emplace();
  for (const auto& [each, numbers] : found) {
    // So many files leave a number free that is no larger than their count plus one.
    Numbers& taken = listed.try_emplace(each, numbers.size() + 1).first->second;
    for (const auto number : numbers) {
      if (number < taken.size()) taken[number] = true;
    }
  }
}

bool FreePaths::isListed(const std::wstring& name, std::size_t number) const {
  if (!listed_) return false;
  const auto found = listed_->find(name);
  return found != listed_->end() && number < found->second.size() && found->second[number];
}

std::wstring FreePaths::choose(std::wstring_view name) {
  const std::wstring key(name);
  const auto extension = extensionOf(name);
  const std::wstring start = folder() + key.substr(0, extension);
  std::size_t& number = firstFree_.try_emplace(key, 1).first->second;
  for (;; ++number) {
    if (isListed(key, number)) continue;
    std::wstring path = start + std::to_wstring(number) + key.substr(extension);
    if (!files::isVisible(path)) return path;
    if (!listed_) list();
  }
}

std::wstring FreePaths::chooseAfter(std::wstring_view name, const std::wstring& refused) {
  std::wstring path = choose(name);
  if (path != refused) return path;
  ++firstFree_[std::wstring(name)];
  return choose(name);
}

}  // namespace ktpnaips
