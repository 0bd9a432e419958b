#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/component/component.h"
#include "tests/component/type_members.h"

using Microsoft::WRL::ComPtr;

namespace {

/// The interfaces that got members after version 1, and the number of the first of them.
constexpr std::array<std::pair<const char*, int>, 16> grown{{{"_AuthenticateRsp", 10},
                                                             {"_ChangePasswordRsp", 5},
                                                             {"_GetGroupAffiliationRsp", 7},
                                                             {"_BriefingResponse", 9},
                                                             {"_FirstLastLightRsp", 8},
                                                             {"_ViewNOTAMListForSPFIBRsp", 7},
                                                             {"_ChartDirectoryRsp", 7},
                                                             {"_GetChartRsp", 7},
                                                             {"_GetSPFIBRsp", 7},
                                                             {"_ActiveSPFIBDirectoryRsp", 7},
                                                             {"_RouteDirectoryRsp", 7},
                                                             {"_LocAirspaceDirectoryRsp", 7},
                                                             {"_GeneralMETMessageDirRsp", 8},
                                                             {"_SubmitICAOFlightNotifRsp", 6},
                                                             {"_SubmitSARTimeNotifRsp", 6},
                                                             {"_ActiveFlightNotifDirRsp", 7}}};

/// What the library of version 1 said.
std::vector<std::string> linesOfVersion1() {
  std::ifstream file(KTP_COMPONENT_TESTS "/version_1.txt");
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with('#')) lines.push_back(line);
  }
  return lines;
}

/// The members behind the last one of version 1.
std::vector<std::string> newLines(const std::string& type, int number, int place) {
  std::vector<std::string> lines;
  for (const char* const member : {"Outcome: ", "ErrorCode: ", "Reason: ", "SentDocument: "}) {
    const bool isNumber = std::string(member) == "ErrorCode: ";
    lines.push_back(type + '.' + member + "number " + std::to_string(number++) + ", place " +
                    std::to_string(place++) + ", kind 2, flags 0, type 25(10 type " +
                    (isNumber ? "3*)" : "8*)"));
  }
  return lines;
}

class VersionOne : public component::Test {};

/// Hosts that were compiled against version 1 find all of it where it was.
TEST_F(VersionOne, HasGrownAtTheEndOfResponsesAndNowhereElse) {
  std::vector<std::string> expected = linesOfVersion1();
  ASSERT_GT(expected.size(), 500U);
  for (const auto& [type, number] : grown) {
    const std::string prefix = std::string(type) + '.';
    const auto isMember = [&](const std::string& line) { return line.starts_with(prefix); };
    const auto last = std::find_if(expected.rbegin(), expected.rend(), isMember);
    ASSERT_NE(last, expected.rend()) << type;
    const std::string place = ", place ";
    const int next = std::stoi(last->substr(last->find(place) + place.size())) + 1;
    const std::vector<std::string> lines = newLines(type, number, next);
    expected.insert(last.base(), lines.begin(), lines.end());
  }
  EXPECT_EQ(members::linesOf(component::typeLibrary().Get()), expected);
}

}  // namespace
