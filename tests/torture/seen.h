#pragma once

#include <ktpnaips/core/response.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/torture/failing_step.h"
#include "tests/torture/message.h"
#include "tests/torture/scenario.h"

namespace ktpnaips::test {

/// What a host sees of one call.
struct Seen {
  bool hasResponse = false;
  bool hasEscaped = false;  ///< a failed allocation reached the host
  bool error = false;
  Outcome outcome = Outcome::none;
  std::wstring errorText;
  std::string content;
  std::map<std::string, std::string> namedFiles;  ///< those that the response names
  std::map<std::string, std::string> dataFiles;   ///< those in the data folder
  std::vector<std::wstring> reports;
};

inline constexpr const char* earlierProduct = "a product of an earlier briefing";

/// Makes the scenario's call with that failure; files go to the data folder.
Seen call(const Scenario& scenario, const std::filesystem::path& dataFolder,
          const Failure& failure);

/// A line or more, for a person.
std::string described(const Seen& seen);

void writeSeen(const Seen& seen, MessageWriter& message);
Seen readSeen(MessageReader& message);

}  // namespace ktpnaips::test
