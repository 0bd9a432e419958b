#include "tests/torture/judge.h"

#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <regex>
#include <set>
#include <string_view>

namespace ktpnaips::test {
namespace {

bool holds(std::wstring_view text, std::wstring_view part) {
  return text.find(part) != std::wstring_view::npos;
}

std::wstring_view firstLine(std::wstring_view text) {
  return text.substr(0, text.find(L'\r'));
}

/// The fault that a failing call for a file shows as.
std::wstring faultOfFile(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return L"Error 61 (Disk full)";
    case EACCES:
    case EROFS:
      return L"Error 70 (Permission denied)";
    case ENOENT:
      return L"Error 76 (Path not found)";
    default:
      return L"Error 75 (Path/File access error)";
  }
}

std::string nameOfStep(const StepsTaken& steps) {
  return steps.at != nullptr ? steps.at->name : "nothing";
}

}  // namespace

std::wstring Judge::trace() const {
  const std::string body = request_.substr(request_.find("\r\n\r\n") + 4);
  return L"\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n" + text::fromUtf8(body);
}

void Judge::judgeUndisturbed(const Seen& seen, const std::string& which, Iteration& result) const {
  const bool isSame = seen.hasResponse && seen.error == expected_.error &&
                      seen.errorText == expected_.errorText && seen.content == expected_.content &&
                      seen.dataFiles == expected_.dataFiles && seen.reports.empty();
  if (!isSame) {
    result.problems.push_back(which + " was not like an undisturbed one: " + described(seen));
  }
}

void Judge::judge(const Seen& seen, const Failure& failure, Iteration& result) const {
  const auto complain = [&](const std::string& what) {
    result.problems.push_back(nameOfStep(result.steps) + " failed: " + what + ": " +
                              described(seen));
  };
  // Without any memory an empty file cannot even be removed.
  const bool mayBeEmpty =
      failure.isLasting && result.steps.hasFailed && result.steps.at->allocates();
  judgeFiles(seen, mayBeEmpty, complain);
  for (std::size_t i = 0; i < seen.reports.size(); ++i) {
    if (!isDue(seen.reports[i], i > 0, result.steps, failure)) complain("no report of the rule");
  }
  const std::wstring unrecognised = L"SOAP Fault: Unrecognised response.  Details below.\r\n";
  const bool isReported = !seen.reports.empty();
  if (seen.outcome == Outcome::success && seen.error) complain("no success");
  if (seen.hasEscaped) {
    result.outcome = "out of memory, to the host";
    if (!result.steps.hasFailed || !result.steps.at->allocates()) complain("let pass");
  } else if (!seen.hasResponse) {
    result.outcome = "no response, reported";
    if (!isReported) complain("no response and no report");
  } else if (seen.error == expected_.error && seen.content == expected_.content &&
             seen.errorText == expected_.errorText) {
    result.outcome = isReported ? "whole response, reported" : "whole response";
  } else if (!seen.error) {
    result.outcome = "part of the response, reported";
    if (!isReported) complain("data lost silently");
  } else if (isReported) {
    result.outcome = "error, reported";
    const bool isOfTheRule = seen.errorText.starts_with(L"No response set") ||
                             seen.errorText.starts_with(unrecognised) ||
                             holds(expected_.errorText, firstLine(seen.errorText));
    if (!isOfTheRule) complain("no error text of the rule");
  } else {
    result.outcome = "error text";
    if (!seen.errorText.starts_with(unrecognised) || !seen.errorText.ends_with(trace())) {
      complain("no error text of the rule");
    }
    if (result.steps.hasFailed && result.steps.at->allocates() &&
        !holds(seen.errorText, L" call failed: ")) {
      complain("the answer is blamed");
    }
  }
  if (result.steps.hasFailed) {
    result.outcome =
        (result.steps.at->allocates() ? "allocation: " : "system call: ") + result.outcome;
  }
}

void Judge::judgeFiles(const Seen& seen, bool mayBeEmpty, const Complain& complain) const {
  const auto& products = scenario_.products;
  const auto isWhole = [&](const std::string& content) {
    return std::find(products.begin(), products.end(), content) != products.end();
  };
  for (const auto& [path, content] : seen.namedFiles) {
    if (mayBeEmpty && content.empty()) continue;
    if (!isWhole(content)) complain("names a file that is not whole: " + path);
  }
  for (const auto& [name, content] : seen.dataFiles) {
    const bool isEarlier = scenario_.hasEarlierProduct && name == "NAIPS1.PNG";
    if (isEarlier ? content != earlierProduct : !isWhole(content)) {
      complain("a file that is not whole: " + name);
    }
  }
  if (scenario_.hasEarlierProduct && seen.dataFiles.count("NAIPS1.PNG") == 0) {
    complain("an earlier product is gone");
  }
}

/// Whether it is what the rule says about the failure of this step.
bool Judge::isDue(const std::wstring& report, bool isLater, const StepsTaken& steps,
                  const Failure& failure) const {
  static const std::wregex form(
      LR"((Error -?\d+ \(.*\)) in procedure (\w+ of (Class )?Module \w+))");
  std::wsmatch parts;
  if (!std::regex_match(report, parts, form)) return false;
  static const std::set<std::wstring> common{L"aaapost of Module Utils",
                                             L"winInetSend of Module winInet",
                                             L"splitURL of Module winInet",
                                             L"loadResponse of Module Utils",
                                             L"lfToCrLf of Module Utils",
                                             L"cleanString of Module Utils",
                                             L"addElement of Module modBrevank",
                                             L"addAttribute of Module modBrevank",
                                             L"convertISODateTime of Module Utilities"};
  const std::wstring procedure = parts[2];
  if (!common.contains(procedure) && !scenario_.procedures.contains(procedure)) return false;
  const std::wstring fault = parts[1];
  if (!steps.hasFailed) return false;
  // What was not made is missing later: an object, or the path of a file.
  const std::wstring noPath = faultOfFile(ENOENT);
  if (isLater && (fault == noPath || fault.starts_with(L"Error 91 "))) return true;
  // A temporary file that was not made, whatever for, is a path that is missing.
  if (steps.at->allocates()) return fault == L"Error 7 (Out of memory)" || fault == noPath;
  const std::string_view function = steps.at->name;
  const bool makesPath = function == "mkdir" || function == "stat" || function == "mkostemps";
  return fault == (makesPath ? noPath : faultOfFile(steps.at->errors.at(failure.way)));
}

void Judge::judgeRequests(const std::vector<std::string>& requests, std::size_t before,
                          const Seen& failed, Iteration& result) const {
  if (requests.size() > before + 2) result.problems.emplace_back("sent more than once");
  if (requests.size() < before + 1) result.problems.emplace_back("not sent");
  const bool isDenied = failed.outcome == Outcome::none || failed.outcome == Outcome::notSent;
  if (requests.size() == before + 2 && failed.hasResponse && isDenied) {
    result.problems.push_back("sent, which the outcome denies: " + described(failed));
  }
  for (std::size_t i = 0; i < requests.size(); ++i) {
    const bool isOfFailed = requests.size() == before + 2 && i == before;
    const bool mayDiffer = isOfFailed && !failed.reports.empty();
    if (requests[i] != request_ && !mayDiffer) {
      result.problems.push_back("another request: " + requests[i]);
    }
  }
}

}  // namespace ktpnaips::test
