#include <gmock/gmock.h>

#include <string>

#include "tests/simulator/answers.h"
#include "tests/simulator/requests.h"
#include "tests/simulator/service_fixture.h"

namespace simtest {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* path = "/naips/flight-notification-service";

class Flights : public ServiceTest {
 protected:
  std::string file(const std::string& stages, const std::string& group = "") {
    return fileDocument(element("flight-notif", element("domestic", "true") + stages) + group);
  }
  std::string fileDocument(const std::string& children) {
    return answer(path,
                  "<ndd:submit-icao-fn-rqs source='x' requestor='DEMO' password='demo-pilot'"
                  " ignore-atyp-reg='false'>" +
                      children + "</ndd:submit-icao-fn-rqs>");
  }
  std::string fileStage(const std::vector<Child>& stage) { return file(flightStageElement(stage)); }
  std::string fileSartime(const std::vector<Child>& notification) {
    return answer(path,
                  request("submit-sar-fn-rqs", element("flight-notif", joined(notification))));
  }
  std::string list(const std::string& filter = "") {
    return answer(path, request("active-fn-dir-rqs", filter));
  }
};

std::string groupOf(std::string_view name) {
  return element("group-id", element("group-name", name));
}

TEST_F(Flights, AreAnsweredByAFlightPlanInIcaoForm) {
  std::vector<Child> stage = with(
      flightStage(true), {element("other-info", element("sts", "HOSP") + element("pbn", "A1 B2") +
                                                    element("eet", "YMMM0020"))});
  stage =
      with(stage, {element("route", element("speed", "N0450") + element("level", "F350") +
                                        element("segment", element("waypoint", loc("WOL"))) +
                                        element("segment", element("ats-route", "H65") +
                                                               element("waypoint", loc("RAZZI")) +
                                                               element("new-speed", "N0440") +
                                                               element("new-level", "F330") +
                                                               element("new-rules", "V")))});
  EXPECT_EQ(text(fileStage(stage), "fpl-text"),
            "(FPL-VHABC-IG\n"
            "-B738/M-SDFGE2J5/LB1\n"
            "-YSSY2200\n"
            "-N0450F350 WOL H65 RAZZI/N0440F330 VFR\n"
            "-YMML0130 YMAV\n"
            "-STS/HOSP PBN/A1B2 DOF/261120 REG/VHABC EET/YMMM0020 "
            "RMK/SARTIME 210230 CENSAR ARRIVAL YSCB\n"
            "-E/0430 P/4 R/VE S/DM J/LV D/2 8 C YELLOW A/WHITE N/NIL C/D DEMO 0400 000 000)");
}

TEST_F(Flights, AreFiledInTheOlderFormToo) {
  const std::string plan = text(fileStage(flightStage(false)), "fpl-text");
  EXPECT_THAT(plan, HasSubstr("\n-B738/M-SDFG/CD\n"));
  EXPECT_THAT(plan, HasSubstr("DLA/C"));
  EXPECT_THAT(plan, HasSubstr("N/NIL FIRST AID KIT WATER"));
}

TEST_F(Flights, NeedNoMoreThanTheSmallestStage) {
  std::vector<Child> stage = flightStage(true);
  std::erase_if(stage, [](const Child& child) { return child.optional; });
  for (const char* empty : {"route", "reg", "other-info"}) {
    stage = with(stage, {element(empty)});
  }
  EXPECT_EQ(text(fileStage(with(stage, {element("num-acft", "3")})), "fpl-text"),
            "(FPL-VHABC-IG\n-3B738/M-SDFGE2J5/LB1\n-YSSY2200\n- DCT\n-YMML0130\n-DOF/261120)");
}

TEST_F(Flights, WriteEveryKindOfWaypoint) {
  EXPECT_THAT(fileStage(flightStage(true)),
              HasSubstr("\n-N0450F350 WOL H65 RAZZI/N0440F330 3352S15112E SY045025 VFR\n"));
}

TEST_F(Flights, BringOneTextForEveryStage) {
  const std::string answer =
      file(flightStageElement(flightStage(true)) + flightStageElement(flightStage(true), 2));
  EXPECT_THAT(texts(answer, "fpl-text"), SizeIs(2));
}

TEST_F(Flights, FaultOnStagesThatAreNotNumberedInOrder) {
  EXPECT_THAT(file(flightStageElement(flightStage(true), 2)),
              HasSubstr("Element 'stage': The number 2 stands where 1 is expected."));
}

TEST_F(Flights, AreListedOnceTheyAreFiled) {
  file(flightStageElement(flightStage(true)));
  fileSartime(with(sartimeNotification(), {element("acid", "VHSAR")}));
  const std::string text = list();
  EXPECT_THAT(texts(text, "id"), ElementsAre("5001", "5002", "5003"));
  EXPECT_THAT(texts(text, "acid"), ElementsAre("VHNSM", "VHABC", "VHSAR"));
  EXPECT_THAT(text, HasSubstr("<naips:flight-notif><naips:id>5002</naips:id><naips:owner-id>DEMO"
                              "</naips:owner-id><naips:group-id/><naips:timestamp>"
                              "2026-11-20T06:00:00Z</naips:timestamp><naips:acid>VHABC"
                              "</naips:acid><naips:route>YSSY WOL H65 RAZZI/N0440F330"));
  EXPECT_THAT(texts(text, "route"), Contains("YSBK PSP RIVET YSCB"));
}

TEST_F(Flights, AreListedByAircraftAndGroup) {
  file(flightStageElement(flightStage(true)), groupOf("RESCUE"));
  EXPECT_THAT(texts(list(element("acid", "vhabc")), "id"), ElementsAre("5002"));
  EXPECT_THAT(texts(list(groupOf("RESCUE")), "group-id"), ElementsAre("RESCUE"));
  EXPECT_THAT(texts(list(groupOf("CLUB")), "id"), ElementsAre("5001"));
  EXPECT_THAT(texts(list(groupOf("CLUB") + element("acid", "VHABC")), "id"), IsEmpty());
}

TEST_F(Flights, AreListedForTheirOwnerOnly) {
  options.accounts.push_back(sim::accountFromText("other:pw"));
  file(flightStageElement(flightStage(true)));
  EXPECT_THAT(texts(answer(path,
                           "<ndd:active-fn-dir-rqs source='x' requestor='OTHER'"
                           " password='pw'/>"),
                    "id"),
              IsEmpty());
}

TEST_F(Flights, AreNoneWithoutANotificationOrStages) {
  EXPECT_THAT(fileDocument(element("flight-notif")), HasSubstr(" status=\"SUCCESS\"/>"));
  EXPECT_THAT(file(""), HasSubstr(" status=\"SUCCESS\"/>"));
  EXPECT_THAT(fileSartime({}), HasSubstr(" status=\"SUCCESS\"/>"));
  EXPECT_THAT(texts(list(), "id"), ElementsAre("5001"));
}

TEST_F(Flights, FaultOnItemsOfTheOtherForm) {
  const auto other = [&](bool newForm, const std::string& items) {
    return fileStage(with(flightStage(newForm), {element("other-info", items)}));
  };
  EXPECT_THAT(other(false, element("dle", "X")), HasSubstr("Element 'dle': This element is not"));
  EXPECT_THAT(other(true, element("dla", "X")), HasSubstr("Element 'dla': This element is not"));
  for (const char* item : {"pbn", "sur", "orgn", "talt"}) {
    EXPECT_THAT(other(false, element(item, "X")),
                HasSubstr("Element '" + std::string(item) + "': This element is not expected"));
  }
  EXPECT_THAT(other(true, element("rmk", "X") + element("rmk", "Y")),
              HasSubstr("Element 'rmk': This element is not expected"));
}

TEST_F(Flights, FaultOnAMixtureOfSurvivalEquipment) {
  for (const char* attributes :
       {"", "polar='true' desert='false' maritime='false'", "water='true'",
        "polar='true' desert='false' maritime='false' jungle='true' water='true'"}) {
    EXPECT_THAT(fileStage(with(
                    flightStage(true),
                    {element("suppl-info", joined(with(supplement(true),
                                                       {element("survival", "", attributes)})))})),
                HasSubstr("Element 'survival': Expected are the attributes"));
  }
}

TEST_F(Flights, FaultOnValuesOutsideTheirSets) {
  const std::pair<const char*, const char*> bad[] = {{"frul", "Q"},
                                                     {"ftyp", "A"},
                                                     {"num-acft", "11"},
                                                     {"num-acft", "01"},
                                                     {"atyp", "B7378"},
                                                     {"wtc", "X"},
                                                     {"surv-equip", "Q"},
                                                     {"surv-equip", "L  B1"},
                                                     {"teet", "PT1H30M"},
                                                     {"teet", "PT01H60M"},
                                                     {"etd", "2026-11-20 22:00"},
                                                     {"altn", ""}};
  for (const auto& [name, value] : bad) {
    EXPECT_THAT(fileStage(with(flightStage(true), {element(name, value)})),
                HasSubstr("Element '" + std::string(name) + "': "))
        << value;
  }
  const std::pair<const char*, const char*> badSupplement[] = {
      {"pob", "0"}, {"pob", "tba"}, {"end", "4"}, {"acft-col-mark", ""}};
  for (const auto& [name, value] : badSupplement) {
    EXPECT_THAT(fileStage(with(flightStage(true),
                               {element("suppl-info",
                                        joined(with(supplement(true), {element(name, value)})))})),
                HasSubstr("Element '" + std::string(name) + "': "))
        << value;
  }
}

TEST_F(Flights, TakeFiftySegmentsAndNoMore) {
  const auto segments = [&](int count) {
    std::string text = element("speed", "N0100") + element("level", "A080");
    for (int i = 0; i < count; ++i) {
      text += element("segment", element("waypoint", loc("WOL")));
    }
    return fileStage(with(flightStage(true), {element("route", text)}));
  };
  EXPECT_THAT(segments(50), HasSubstr("SUCCESS"));
  EXPECT_THAT(segments(51), HasSubstr("Element 'segment': This element is not expected."));
}

TEST_F(Flights, FaultWithoutTheMismatchAttribute) {
  EXPECT_THAT(answer(path, request("submit-icao-fn-rqs", element("flight-notif"))),
              HasSubstr("The attribute 'ignore-atyp-reg' is required but missing."));
  EXPECT_THAT(answer(path,
                     "<ndd:submit-sar-fn-rqs source='x' requestor='DEMO' password='p'"
                     " ignore-atyp-reg='true'><ndd:flight-notif/></ndd:submit-sar-fn-rqs>"),
              HasSubstr("The attribute 'ignore-atyp-reg' is not allowed."));
}

TEST_F(Flights, OfSartimesAreAnsweredByTheirText) {
  EXPECT_EQ(text(fileSartime(sartimeNotification()), "notif-text"),
            "(SARTIME NOTIFICATION\n-VHABC C172\n"
            "-YSBK PSP RIVET YSCB ETD 202200 ALTN YSWG\n"
            "-RMK/TRAINING\n-SARTIME 210230 CENSAR ARRIVAL YSCB\n-E/0500\n-P/2 TBAN\n"
            "-R/VHF ELT-406-MHZ\n-C/D DEMO 0400 000 000)");
}

TEST_F(Flights, OfSartimesMayLeaveTheTimeToBeAdvised) {
  const std::string sar = element("sartimetban", "TBA") + element("ats-unit") + element("location");
  EXPECT_THAT(fileSartime(with(sartimeNotification(), {element("sar", sar)})),
              HasSubstr("\n-SARTIME TBA\n"));
  EXPECT_THAT(fileSartime(with(sartimeNotification(), {element("sar")})), HasSubstr("SUCCESS"));
  EXPECT_THAT(
      fileSartime(with(sartimeNotification(), {element("sar", element("sartimetban", "TBAN"))})),
      HasSubstr("Element 'sartimetban': "));
}

}  // namespace
}  // namespace simtest
