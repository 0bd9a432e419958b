#include <ktpnaips/core/failure_report.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/platform/desktop.h>
#include <ktpnaips/platform/lasting.h>
#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <mutex>
#include <new>
#include <string>

namespace ktpnaips {
namespace {

std::mutex reporterMutex;

std::shared_ptr<const FailureReporter>& installedReporter() {
  static platform::Lasting<std::shared_ptr<const FailureReporter>> reporter;
  return *reporter;
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

/// As much of a text as fits; needs no memory of its own.
class FixedText {
 public:
  FixedText& operator+=(std::wstring_view part) {
    part = part.substr(0, text_.size() - size_);
    std::ranges::copy(part, text_.data() + size_);
    size_ += part.size();
    return *this;
  }
  [[nodiscard]] std::wstring_view view() const { return {text_.data(), size_}; }

 private:
  std::array<wchar_t, 256> text_{};
  std::size_t size_ = 0;
};

template <class Text>
Text reportText(std::wstring_view number, std::wstring_view description,
                const Procedure& procedure) {
  Text text{};
  text += L"Error ";
  text += number;
  text += L" (";
  text += description;
  text += L") in procedure ";
  text += procedure.name;
  text += procedure.isClass ? L" of Class Module " : L" of Module ";
  text += procedure.module;
  return text;
}

void reportFault(const RuntimeFault& fault, const Procedure& procedure) {
  deliver(
      reportText<std::wstring>(std::to_wstring(fault.number()), fault.description(), procedure));
}

void reportOutOfMemory(const Procedure& procedure) {
  deliver(reportText<FixedText>(L"7", L"Out of memory", procedure).view());
}

}  // namespace

void setFailureReporter(FailureReporter reporter) {
  auto shared = reporter ? std::make_shared<const FailureReporter>(std::move(reporter)) : nullptr;
  const std::lock_guard lock(reporterMutex);
  installedReporter() = std::move(shared);
}

void reportFailure(const Procedure& procedure) noexcept {
  try {
    reportFault(faultInFlight(), procedure);
  } catch (const std::bad_alloc&) {
    try {
      reportOutOfMemory(procedure);
    } catch (...) {  // the reporter itself failed: nobody is left to tell
    }
  } catch (...) {  // as above
  }
}

}  // namespace ktpnaips
