#pragma once

#include <ktpnaips/core/response.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace ktpnaips::test {

/// How a scenario reaches the service.
enum class Way { http, https, named };

/// What a host does in one call of the library, and what comes of it.
struct Scenario {
  std::string name;
  Way way = Way::http;
  /// The body that the service answers with.
  std::string answer;
  /// Sets the thread up, fills the request and submits it. All its steps are counted.
  std::function<std::shared_ptr<const ResponseBase>()> submit;
  /// All that the response holds of its own, the contents of its files included.
  std::function<std::string(const ResponseBase&)> content;
  /// The files that the response names.
  std::function<std::vector<std::wstring>(const ResponseBase&)> files;
  /// What each of the files may hold: the products of the answer, whole.
  std::vector<std::string> products;
  /// Whether a product of that name is in the data folder already, or there is no folder yet.
  bool hasEarlierProduct = false;
  /// Whether somebody observes the calls.
  bool isObserved = false;
  /// What may report a failure, as in "submit of Class Module ChartDir".
  std::set<std::wstring> procedures;
};

/// One for each kind of call.
std::vector<Scenario> scenarios();

}  // namespace ktpnaips::test
