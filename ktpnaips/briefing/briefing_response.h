#pragma once

#include <ktpnaips/briefing/products.h>
#include <ktpnaips/core/collection.h>
#include <ktpnaips/core/property.h>
#include <ktpnaips/core/response.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ktpnaips {

/// A briefing: its text, and its products as items in the order of the answer. Each product has
/// been written into the data folder under a number of its own; the files stay, the host removes
/// them. Setting `ResponseDoc` again writes new files.
class BriefingResponse : public ResponseBase, public Collection<std::shared_ptr<BriefItem>> {
 public:
  BriefingResponse();

  ReadOnly<std::wstring, BriefingResponse> Content;  ///< the text of the briefing
  ReadOnly<std::wstring, BriefingResponse> Product;  ///< never filled

  /// All items, for iteration.
  [[nodiscard]] const std::vector<std::shared_ptr<BriefItem>>& Images() const noexcept {
    return entries();
  }

 private:
  void loaded() override;
  void extractData() override;
};

}  // namespace ktpnaips
