#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/deployment.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <set>
#include <string>
#include <string_view>

#include "tests/support/failing_allocation.h"
#include "tests/support/failure_recorder.h"
#include "tests/support/fault.h"
#include "tests/support/soap.h"

/// Which handlers a subject has, found by making every allocation fail in turn.
namespace ktpnaips::test {

using Outcomes = std::set<std::wstring>;

/// Stands in `Outcomes` for a failure that no procedure trapped.
inline constexpr std::wstring_view escaped = L"escaped";

/// The report of a failed allocation in a procedure of a class.
inline std::wstring outOfMemory(std::wstring_view procedure, std::wstring_view classWord) {
  return L"Error 7 (Out of memory) in procedure " + std::wstring(procedure) + L" of Class Module " +
         std::wstring(classWord);
}

/// How the failures of all allocations end that the procedure makes which `prepare` returns, ready
/// to run: the reports that name a class module, and `escaped`.
template <class Prepare>
Outcomes outcomesOfFailures(Prepare&& prepare) {
  Outcomes outcomes;
  for (int before = 0; before < 5000; ++before) {
    auto procedure = prepare();
    const FailureRecorder recorder;
    bool hasFailed = false;
    bool hasEscaped = false;
    {
      const FailingAllocation failure(before);
      try {
        procedure();
      } catch (const std::bad_alloc&) {
        hasEscaped = true;
      }
      hasFailed = failure.hasFailed();
    }
    if (hasEscaped) outcomes.emplace(escaped);
    for (const std::wstring& report : recorder.reports()) {
      if (report.find(L"of Class Module") != std::wstring::npos) outcomes.insert(report);
    }
    if (!hasFailed) return outcomes;
  }
  ADD_FAILURE() << "too many allocations";
  return outcomes;
}

/// How the failures of all allocations end in the `appendTo` of a part or request.
inline Outcomes outcomesOfAppending(const IAppendable& part) {
  return outcomesOfFailures([&] {
    const std::wstring schema = Deployment::current().schemaNamespace;
    const xml::Document document = xml::Document::create();
    return [&part, schema, parent = modBrevank::addElement(document, L"part", schema)] {
      part.appendTo(parent, schema);
    };
  });
}

/// How appending the request to no node ends: with the handler that its `appendTo` has, or not.
inline Outcomes outcomesOfAppendingToNoNode(const IAppendable& request) {
  Outcomes outcomes;
  const FailureRecorder recorder;
  if (faultOf([&] { request.appendTo({}, L"urn:none"); }) != 0) outcomes.emplace(escaped);
  for (const std::wstring& report : recorder.reports()) {
    if (report.find(L"of Class Module") != std::wstring::npos) outcomes.insert(report);
  }
  return outcomes;
}

/// The report of a missing object in the `appendTo` of a class.
inline std::wstring missingObject(std::wstring_view classWord) {
  return L"Error 91 (Object variable or With block variable not set) in procedure "
         L"IAppendable_appendTo of Class Module " +
         std::wstring(classWord);
}

/// How the failures of all allocations end while a new `Response` is given an answer.
template <class Response>
Outcomes outcomesOfLoading(const std::string& answer) {
  const xml::Document document = parsed(answer);
  return outcomesOfFailures([&] {
    return
        [&document, response = std::make_shared<Response>()] { response->ResponseDoc(document); };
  });
}

/// The reports of a `submit` whose first allocation fails.
template <class Request>
Reports reportsOfFailingSubmit(const Request& request) {
  const FailureRecorder recorder;
  {
    const FailingAllocation failure;
    EXPECT_EQ(request.submit(), nullptr);
  }
  return recorder.reports();
}

}  // namespace ktpnaips::test
