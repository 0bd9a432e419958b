#pragma once

#include <ktpnaips/platform/runtime_fault.h>

#include <memory>

namespace ktpnaips {

/// The object that the pointer holds; throws fault 91 when it holds none.
template <class T>
T& needed(const std::shared_ptr<T>& object) {
  if (object == nullptr) throw RuntimeFault(fault::objectNotSet);
  return *object;
}

}  // namespace ktpnaips
