#pragma once

#include "classes.h"

#include <unknwn.h>

namespace ktpnaips::component {

/// Creates the objects of a class that hosts can create.
com::ComPtr<IClassFactory> factoryOf(const Class& offered);

}  // namespace ktpnaips::component
