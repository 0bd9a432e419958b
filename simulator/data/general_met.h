#pragma once

#include <span>
#include <string_view>

namespace sim {

struct GeneralMetMessage {
  std::string_view name;
  std::string_view type;
  std::string_view text;  // lines end with LF
};

std::span<const GeneralMetMessage> generalMetMessages();

// Both are compared without regard to case; nullptr when there is none.
const GeneralMetMessage* findGeneralMet(std::string_view name, std::string_view type);

}  // namespace sim
