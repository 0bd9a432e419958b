#pragma once

#include <functional>
#include <string_view>

namespace ktpnaips {

/// Receives the text of each unexpected failure that a procedure of the library trapped. Called on
/// the thread on which it happened; what it throws is dropped.
using FailureReporter = std::function<void(std::wstring_view report)>;

/// Installs the reporter for the whole process, from any thread; an empty function restores the
/// default: a modal message box on Windows, standard error elsewhere.
void setFailureReporter(FailureReporter reporter);

}  // namespace ktpnaips
