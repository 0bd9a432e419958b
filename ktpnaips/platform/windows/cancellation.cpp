#include <ktpnaips/platform/cancellation.h>

namespace ktpnaips::platform {

// Threads are ended by themselves here, or without a trace.
WithoutCancellation::WithoutCancellation() noexcept = default;
WithoutCancellation::~WithoutCancellation() = default;

}  // namespace ktpnaips::platform
