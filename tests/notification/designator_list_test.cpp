#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/notification/icao_notification.h>
#include <ktpnaips/notification/sartime_notification.h>

#include <gtest/gtest.h>
#include <boost/regex.hpp>

#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "tests/support/parts.h"
#include "tests/support/settings.h"

namespace ktpnaips {
namespace {

constexpr const char* navCom = "[NSABCDFGHIKLORTUVWXYZ]|E[1-3]|J[1-7]|M[1-3]|P[1-9]";
constexpr const char* ssr = "[NLEHSIPXCA]|B[12]|U[12]|V[12]|D1|G1";
constexpr const char* sts =
    "ALTRV|ATFMX|FFR|FLTCK|HAZMAT|HEAD|HOSP|HUM|MARSA|MEDEVAC|NONRVSM|SAR|STATE";
constexpr const char* pbn = "[AL]1|B[1-6]|[CDO][1-4]|[ST][12]";
constexpr const char* persons = "([0-9]+|TBAN?)";

/// What the expression matches in the text, joined by spaces.
std::string matches(const std::string& text, const char* expression) {
  const boost::regex pattern(expression);
  std::string joined;
  for (boost::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end;
       ++match) {
    joined += (joined.empty() ? "" : " ") + match->str();
  }
  return joined;
}

std::wstring wide(const std::string& ascii) {
  return {ascii.begin(), ascii.end()};
}

std::string element(const std::string& name, const std::string& text) {
  return text.empty() ? "<ndd:" + name + "/>" : "<ndd:" + name + ">" + text + "</ndd:" + name + ">";
}

/// Texts of pieces that are designators, starts of them or neither, in all pairs and by chance.
class DesignatorList : public testing::Test {
 protected:
  DesignatorList() { NAIPSConfig().NewFPLFormat(true); }

  static std::vector<std::string> texts(std::vector<std::string> pieces) {
    for (const char c : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789,/-")) {
      pieces.emplace_back(1, c);
    }
    std::string pairs;
    for (const auto& first : pieces) {
      for (const auto& second : pieces) pairs += first + second + ';';
    }
    std::vector<std::string> all{pairs};
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
      std::string& text = all.emplace_back();
      for (int piece = 0; piece < 60; ++piece) text += pieces[random() % pieces.size()];
    }
    return all;
  }

 private:
  test::FreshSettings settings_;
};

TEST_F(DesignatorList, HoldsTheEquipmentThatTheExpressionsMatch) {
  ICAOFlightNotifStage stage;
  for (const auto& text : texts({})) {
    stage.NavComEquip(wide(text));
    stage.SSREquip(wide(text));
    EXPECT_EQ(test::writtenElement(stage, "nav-com-equip"),
              element("nav-com-equip", matches(text, navCom)));
    EXPECT_EQ(test::writtenElement(stage, "surv-equip"), element("surv-equip", matches(text, ssr)));
  }
}

TEST_F(DesignatorList, HoldsTheReasonsForSpecialHandlingThatTheExpressionMatches) {
  ICAOOtherInfo info;
  for (const auto& text :
       texts({"ALTRV", "ATFMX", "FFR", "FLTCK", "HAZMAT", "HEAD", "HOSP", "HUM", "MARSA", "MEDEVAC",
              "NONRVSM", "SAR", "STATE", "ALTR", "HAZ", "MED", "HO", "ST"})) {
    info.STS(wide(text));
    EXPECT_EQ(test::writtenElement(info, "sts"), element("sts", matches(text, sts)));
  }
}

TEST_F(DesignatorList, HoldsThePerformanceDesignatorsThatTheExpressionMatches) {
  ICAOOtherInfo info;
  for (const auto& text : texts({})) {
    info.PBN(wide(text));
    EXPECT_EQ(test::writtenElement(info, "pbn"), element("pbn", matches(text, pbn)));
  }
}

TEST_F(DesignatorList, HoldsThePersonsOnBoardThatTheExpressionMatches) {
  SARTimeFlightNotif notification;
  for (const auto& text : texts({"TBAN", "TBA", "TB", "120", "007"})) {
    notification.POB(wide(text));
    EXPECT_EQ(notification.POB(), wide(matches(text, persons)));
  }
}

}  // namespace
}  // namespace ktpnaips
