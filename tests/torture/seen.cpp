#include "tests/torture/seen.h"

#include <ktpnaips/core/failure_report.h>
#include <ktpnaips/platform/text.h>

#include <cstddef>
#include <memory>
#include <new>

#include "tests/support/data_folder.h"

namespace ktpnaips::test {
namespace {

namespace fs = std::filesystem;

void setUp(const fs::path& dataFolder, const Scenario& scenario) {
  fs::remove_all(dataFolder);
  if (!scenario.hasEarlierProduct) return;
  fs::create_directories(dataFolder);
  putFile(dataFolder / "NAIPS1.PNG", earlierProduct);
}

}  // namespace

Seen call(const Scenario& scenario, const fs::path& dataFolder, const Failure& failure) {
  setUp(dataFolder, scenario);
  Seen seen;
  setFailureReporter([&seen](std::wstring_view report) {
    const Uncounted uncounted;
    seen.reports.emplace_back(report);
  });
  std::shared_ptr<const ResponseBase> response;
  {
    const FailingStep scope(failure);
    try {
      response = scenario.submit();
    } catch (const std::bad_alloc&) {
      seen.hasEscaped = true;
    }
  }
  setFailureReporter({});
  seen.hasResponse = response != nullptr;
  for (const auto& each : fs::directory_iterator(dataFolder.parent_path())) {
    if (each.path() != dataFolder) seen.dataFiles["stray " + each.path().string()];
  }
  if (fs::exists(dataFolder)) {
    for (const auto& each : fs::directory_iterator(dataFolder)) {
      seen.dataFiles[each.path().filename().string()] = contentOf(each.path());
    }
  }
  if (response == nullptr) return seen;
  seen.error = response->Error();
  seen.outcome = response->outcome();
  seen.errorText = response->ErrorText();
  seen.content = scenario.content(*response);
  for (const std::wstring& file : scenario.files(*response)) {
    const fs::path path(file);
    if (fs::is_regular_file(path)) seen.namedFiles[path.string()] = contentOf(path);
  }
  return seen;
}

std::string described(const Seen& seen) {
  std::string text = seen.hasEscaped ? "escaped" : seen.hasResponse ? "response" : "no response";
  if (seen.hasResponse) {
    text +=
        seen.error ? ", error \"" + text::toUtf8(seen.errorText).substr(0, 300) + '"' : ", success";
  }
  for (const std::wstring& report : seen.reports) text += "\n  report: " + text::toUtf8(report);
  for (const auto& [name, content] : seen.dataFiles) {
    text += "\n  file: " + name + ", " + std::to_string(content.size());
  }
  for (const auto& [name, content] : seen.namedFiles) {
    text += "\n  named: " + name + ", " + std::to_string(content.size());
  }
  return text;
}

void writeSeen(const Seen& seen, MessageWriter& message) {
  for (const bool each : {seen.hasResponse, seen.hasEscaped, seen.error}) message.addNumber(each);
  message.addNumber(static_cast<std::size_t>(seen.outcome));
  message.add(text::toUtf8(seen.errorText));
  message.add(seen.content);
  message.addFiles(seen.namedFiles);
  message.addFiles(seen.dataFiles);
  message.addNumber(seen.reports.size());
  for (const std::wstring& each : seen.reports) message.add(text::toUtf8(each));
}

Seen readSeen(MessageReader& message) {
  Seen seen;
  for (bool* const each : {&seen.hasResponse, &seen.hasEscaped, &seen.error})
    *each = message.number() != 0;
  seen.outcome = static_cast<Outcome>(message.number());
  seen.errorText = text::fromUtf8(message.text());
  seen.content = message.text();
  seen.namedFiles = message.files();
  seen.dataFiles = message.files();
  for (std::size_t left = message.number(); left > 0; --left) {
    seen.reports.push_back(text::fromUtf8(message.text()));
  }
  return seen;
}

}  // namespace ktpnaips::test
