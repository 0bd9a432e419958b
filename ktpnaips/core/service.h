#pragma once

#include <cstdint>
#include <string>

namespace ktpnaips {

/// The NAIPS services, by the number that requests give to the poster.
namespace service {
inline constexpr std::int32_t reference = 0;
inline constexpr std::int32_t account = 1;
inline constexpr std::int32_t briefing = 2;
inline constexpr std::int32_t flightNotification = 3;
inline constexpr std::int32_t met = 4;
}  // namespace service

/// The URL that the configured mode and a service number select. An unknown mode gives no base,
/// an unknown service no path.
std::wstring serviceURL(std::int32_t service);

}  // namespace ktpnaips
