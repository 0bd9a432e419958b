#pragma once

#include <ktpnaips/core/outcome.h>
#include <ktpnaips/core/service.h>
#include <ktpnaips/core/trap.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace ktpnaips {

/// What distinguishes one operation of the service from another.
struct Operation {
  std::int32_t service;
  std::wstring_view element;      ///< local name of the request element
  std::wstring_view requestName;  ///< handed to the poster; as a rule the element name
  Procedure submit;               ///< the handler of `submit`
  /// The handler of `appendTo`; without one a fault passes on to the poster.
  std::optional<Procedure> appendTo = std::nullopt;
  Effect effect = Effect::reads;
};

}  // namespace ktpnaips
