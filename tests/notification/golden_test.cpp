#include <ktpnaips/core/naips_config.h>
#include <ktpnaips/core/request_document.h>
#include <ktpnaips/notification/filing.h>
#include <tests/support/date_time.h>
#include <tests/support/settings.h>

#include <gtest/gtest.h>

#include <fstream>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>

namespace ktpnaips {
namespace {

using test::at;

/// The document of that name, without the line end that closes its file.
std::string golden(const std::string& name) {
  std::ifstream file(KTP_TEST_DATA "/notification/golden/" + name + ".xml", std::ios::binary);
  std::string text(std::istreambuf_iterator<char>(file), {});
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  return text;
}

void setCommon(AbstractRequest& header) {
  header.User(L"pilot1");
  header.Password(L"Secret1");
}

std::shared_ptr<ICAORoute> route() {
  const auto first = std::make_shared<ICAORouteSegment>();
  first->ATSRouteId(L"h65");
  first->setNamed(L" lizzi ");
  first->NewSpeed(L"n0430");
  first->NewLevel(L"f370");
  first->CCLevel(L"f330");
  first->NewRules(L"vfr");
  const auto position = std::make_shared<ICAORouteSegment>();
  position->setLatLon(-33.8667, 151.2);
  const auto offset = std::make_shared<ICAORouteSegment>();
  offset->setBearingDistance(L"sy", 45, 25);
  const auto designator = std::make_shared<ICAORouteSegment>();
  designator->ATSRouteId(L" w113 ");
  designator->setNamed(L"wol180010");

  auto result = std::make_shared<ICAORoute>();
  result->Speed(L" n0450 ");
  result->Level(L"f350");
  for (const auto& segment : {first, position, offset, designator}) result->Add(segment);
  result->Add(std::make_shared<ICAORouteSegment>());
  return result;
}

std::shared_ptr<ICAOOtherInfo> otherInfo() {
  auto info = std::make_shared<ICAOOtherInfo>();
  info->EET(L" ymmm0010  ybbb0100 ");
  info->RIF(L"dta hec yscb");
  info->SEL(L"abcd");
  info->OPR(L"coastal air");
  info->STS(L"hosp,  medevac/state");
  info->PER(L"cat");
  info->COM(L"uhf only");
  info->NAV(L"gbas");
  info->DAT(L"cpdlc");
  info->DEP(L"3745s14450e");
  info->Dest(L"farm  strip");
  info->ALTN(L"ymmb training area");
  info->RALT(L"ywol");
  info->Code(L"f00001");
  info->RMK(L"tcas equipped");
  info->TYP(L"2f15 3b738");
  info->DLA(L"lizzi0030");
  info->PBN(L"a1b2/c3 d4 b7 o5");
  info->SUR(L"tso-c166b");
  info->ORGN(L"yssyzpzx");
  info->TALT(L"ywlm");
  return info;
}

std::shared_ptr<ICAOSupplInfo> supplInfo() {
  auto info = std::make_shared<ICAOSupplInfo>();
  info->Endurance(330);
  info->POB(152);
  for (const int bit : {0, 4, 6, 7, 9, 11, 12}) info->setFlag(bit, true);
  info->setFlag(2, false);
  info->DinghyCount(4);
  info->DinghyCapacity(160);
  info->DinghyCovered(true);
  info->DinghyColour(L"orange and black");
  info->AircraftColour(L"white  blue");
  info->Remarks(L"medical kit & <oxygen>");
  info->Pilot()->Name(L"jo  citizen");
  info->Pilot()->Phone(L"+61 2  5550 0100");
  return info;
}

std::shared_ptr<ICAOFlightNotifStage> fullStage() {
  auto stage = std::make_shared<ICAOFlightNotifStage>();
  stage->Registration(L" vh-abc ");
  stage->AltDestination(L"ymmb");
  stage->Aircraft(L" vh  abc ");
  stage->FlightRules(L"ifr");
  stage->TypeOfFlight(L"scheduled");
  stage->AircraftType(L"b738");
  stage->WTC(L" medium");
  stage->NavComEquip(L" s d f g e2 j5 q ");
  stage->SSREquip(L"e b1 u2 q");
  stage->Depart(L" ymml ");
  stage->Destination(L" yssy ");
  stage->TEET(95);
  stage->ETD(at(2026, 3, 7, 23, 5));
  stage->NumAircraft(2);
  stage->ADS(true);
  stage->Route(route());
  stage->OtherInfo(otherInfo());
  stage->SARTime(std::make_shared<SarTimeInfo>());
  stage->SARTime()->TBA(false);
  stage->SARTime()->Time(at(2026, 3, 8, 1, 30));
  stage->SARTime()->ATSUnit(L"censar");
  stage->SARTime()->EndPoint(L"last  stop");
  stage->SARTime()->Location(L"yssy");
  stage->SupplInfo(supplInfo());
  return stage;
}

std::shared_ptr<ICAOFlightNotifStage> sparseStage() {
  auto stage = std::make_shared<ICAOFlightNotifStage>();
  stage->FlightRules(L" ");
  stage->AircraftType(L"B7378");
  stage->NavComEquip(L"q");
  stage->ETD(at(2026, 3, 8, 2, 0, 30));
  stage->NumAircraft(11);
  stage->TEET(-5);
  stage->OtherInfo(std::make_shared<ICAOOtherInfo>());
  stage->OtherInfo()->STS(L"xyz");
  stage->OtherInfo()->PBN(L"b7");
  stage->SARTime(std::make_shared<SarTimeInfo>());
  stage->SupplInfo(std::make_shared<ICAOSupplInfo>());
  stage->SupplInfo()->POBTBA(true);
  stage->SupplInfo()->POB(7);
  stage->SupplInfo()->Pilot(nullptr);
  return stage;
}

std::string icaoDocument() {
  SubmitICAOFlightNotifRqs request;
  setCommon(request.abstractReq());
  request.GroupId(L"Aero Club");
  request.IgnoreTypeMismatch(true);
  request.Notification()->Domestic(false);
  request.Notification()->Add(fullStage());
  request.Notification()->Add(sparseStage());
  return requestDocument(request);
}

std::string sarTimeDocument() {
  SubmitSARTimeNotifRqs request;
  setCommon(request.abstractReq());
  request.GroupId(L"Aero Club");

  SARTimeFlightNotif& notification = *request.Notification();
  notification.Aircraft(L" vh  def");
  notification.AircraftType(L" c172 ");
  notification.Remarks(L"flying  low");
  notification.Endurance(240);
  notification.POB(L"2+tban");
  notification.setFlag(0, true);
  notification.Pilot()->Name(L"jo citizen");
  notification.Pilot()->Phone(L"0255500100");
  notification.SarTimeInfo()->TBA(false);
  notification.SarTimeInfo()->Time(at(2026, 3, 8, 3, 0));
  notification.SarTimeInfo()->ATSUnit(L"censar");
  notification.SarTimeInfo()->EndPoint(L"arr");
  notification.SarTimeInfo()->Location(L"ycwr");

  const auto first = std::make_shared<SARTimeFlightNotifStage>();
  first->AltDestination(L"ybth");
  first->Depart(L" ysbk ");
  first->Destination(L"ycwr");
  first->ETD(at(2026, 3, 7, 21, 0));
  for (const wchar_t* location : {L" parramatta ", L"  ", L"mt  victoria"}) first->Add(location);
  const auto second = std::make_shared<SARTimeFlightNotifStage>();
  second->ETD(at(2026, 3, 7, 23, 45, 15));
  notification.Add(first);
  notification.Add(second);
  return requestDocument(request);
}

/// The notifications of golden/objects.txt, against the documents written for them.
class GoldenNotification : public testing::Test {
 protected:
  static void configure(bool newFormat, bool disableIcao) {
    NAIPSConfig config;
    config.NewFPLFormat(newFormat);
    config.DisableICAO(disableIcao);
  }

 private:
  test::FreshSettings settings_;
};

TEST_F(GoldenNotification, IcaoInTheOldFormat) {
  configure(false, false);
  EXPECT_EQ(icaoDocument(), golden("icao-old-format"));
}

TEST_F(GoldenNotification, IcaoInTheOldFormatWithDomesticSurvivalEquipment) {
  configure(false, true);
  EXPECT_EQ(icaoDocument(), golden("icao-old-format-domestic-survival"));
}

TEST_F(GoldenNotification, IcaoInTheNewFormat) {
  configure(true, false);
  EXPECT_EQ(icaoDocument(), golden("icao-new-format"));
}

TEST_F(GoldenNotification, IcaoInTheNewFormatWithDomesticSurvivalEquipment) {
  configure(true, true);
  EXPECT_EQ(icaoDocument(), golden("icao-new-format-domestic-survival"));
}

TEST_F(GoldenNotification, SarTimeIsTheSameUnderAllSettings) {
  for (const bool newFormat : {false, true}) {
    for (const bool disableIcao : {false, true}) {
      configure(newFormat, disableIcao);
      EXPECT_EQ(sarTimeDocument(), golden("sartime"));
    }
  }
}

}  // namespace
}  // namespace ktpnaips
