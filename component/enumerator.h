#pragma once

#include <ktpnaips/platform/windows/com.h>

#include <cstddef>
#include <vector>

namespace ktpnaips::component {

/// What For Each walks over; an object may be none.
using Objects = std::vector<com::ComPtr<IDispatch>>;

com::ComPtr<IUnknown> enumerate(Objects objects);

}  // namespace ktpnaips::component
