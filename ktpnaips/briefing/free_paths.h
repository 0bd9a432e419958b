#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ktpnaips {

/// The free paths of the data folder, for the products of one answer: the folder is listed at most
/// once, so that many earlier files cost no more than that.
class FreePaths {
 public:
  /// The data folder with a separator at its end, made on first use; an empty text when there is
  /// none.
  const std::wstring& folder();

  /// The path that no visible file occupies: the name with the first such number from 1 before its
  /// extension. Stays the same until a file stands there.
  std::wstring choose(std::wstring_view name);

  /// As `choose`, but not `refused`, which is not free although it may look so.
  std::wstring chooseAfter(std::wstring_view name, const std::wstring& refused);

 private:
  using Numbers = std::vector<bool>;  // by number, whether it is taken

  void list();
  /// May be false for a taken number: what it excludes is only not looked at again.
  [[nodiscard]] bool isListed(const std::wstring& name, std::size_t number) const;

  std::optional<std::wstring> folder_;
  std::unordered_map<std::wstring, std::size_t> firstFree_;          // by name
  std::optional<std::unordered_map<std::wstring, Numbers>> listed_;  // by name
};

}  // namespace ktpnaips
