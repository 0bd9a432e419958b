#pragma once

#include <windows.h>

namespace ktpnaips::component {

/// Where the component is registered.
enum class Scope { machine, user };

/// Writes the registration of all classes, of the type library and of its interfaces. Throws
/// RuntimeFault with the number of what failed; nothing is left then.
void registerComponent(Scope scope);
/// Removes all of it; what is not there is no failure.
void unregisterComponent(Scope scope);

}  // namespace ktpnaips::component
