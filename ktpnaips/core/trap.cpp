#include <ktpnaips/core/failure_report.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/desktop.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>

#include <memory>
#include <mutex>
#include <new>
#include <string>

namespace ktpnaips {
namespace {

std::mutex reporterMutex;

std::shared_ptr<const FailureReporter>& installedReporter() {
  static std::shared_ptr<const FailureReporter> reporter;
  return reporter;
}

std::shared_ptr<const FailureReporter> currentReporter() {
  const std::lock_guard lock(reporterMutex);
  return installedReporter();
}

void deliver(std::wstring_view report) {
  const auto reporter = currentReporter();
  if (reporter != nullptr) {
    (*reporter)(report);
  } else {
    desktop::showMessage(report);
  }
}

RuntimeFault faultInFlight() {
  try {
    throw;
  } catch (const RuntimeFault& fault) {
    return fault;
  } catch (const std::bad_alloc&) {
    return RuntimeFault(fault::outOfMemory);
  } catch (const std::exception& other) {
    return RuntimeFault(fault::internalError, L"Internal error: " + text::fromUtf8(other.what()));
  } catch (...) {
    return RuntimeFault(fault::internalError);
  }
}

std::wstring reportText(const RuntimeFault& fault, const Procedure& procedure) {
  std::wstring text = L"Error ";
  text += std::to_wstring(fault.number());
  text += L" (";
  text += fault.description();
  text += L") in procedure ";
  text += procedure.name;
  text += procedure.isClass ? L" of Class Module " : L" of Module ";
  text += procedure.module;
  return text;
}

}  // namespace

void setFailureReporter(FailureReporter reporter) {
  auto shared = reporter ? std::make_shared<const FailureReporter>(std::move(reporter)) : nullptr;
  const std::lock_guard lock(reporterMutex);
  installedReporter() = std::move(shared);
}

void reportFailure(const Procedure& procedure) noexcept {
  try {
    deliver(reportText(faultInFlight(), procedure));
  } catch (const std::bad_alloc&) {
    try {
      deliver(L"Error 7 (Out of memory)");
    } catch (...) {  // the reporter itself failed: nobody is left to tell
    }
  } catch (...) {  // as above
  }
}

}  // namespace ktpnaips
