#pragma once

#include <ktpnaips/core/appendable.h>

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace ktpnaips {

/// Appends a stage element that carries its number and that the stage fills.
void appendStage(const xml::Node& parent, std::wstring_view namespaceUri, std::int64_t number,
                 const IAppendable& stage);

/// The stages of a flight notification. The host only adds to them.
template <class Stage>
class StageList {
 public:
  /// Appends a stage, which stays shared with the host; no object is ignored. A stage added twice
  /// is sent twice.
  void Add(std::shared_ptr<Stage> stage) {
    if (stage != nullptr) stages_.push_back(std::move(stage));
  }

 protected:
  ~StageList() = default;

  /// Appends one element a stage, numbered from 1.
  void appendStages(const xml::Node& parent, std::wstring_view namespaceUri) const {
    std::int64_t number = 0;
    for (const auto& stage : stages_) appendStage(parent, namespaceUri, ++number, *stage);
  }

 private:
  std::vector<std::shared_ptr<Stage>> stages_;
};

}  // namespace ktpnaips
