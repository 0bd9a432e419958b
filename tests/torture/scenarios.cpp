#include <ktpnaips/ktpnaips.h>
#include <openssl/evp.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <utility>

#include "tests/support/data_folder.h"
#include "tests/support/date_time.h"
#include "tests/support/soap.h"
#include "tests/torture/scenario.h"

namespace ktpnaips::test {
namespace {

/// A line for each text.
class Lines {
 public:
  Lines& operator<<(std::wstring_view text) {
    lines_ += text::toUtf8(text) + '\n';
    return *this;
  }
  Lines& operator<<(DateTime time) {
    lines_ += std::to_string(time.time_since_epoch().count()) + '\n';
    return *this;
  }
  Lines& operator<<(bool value) { return *this << std::wstring_view(value ? L"true" : L"false"); }
  Lines& operator<<(const wchar_t* text) { return *this << std::wstring_view(text); }
  Lines& file(const std::wstring& path) {
    lines_ += contentOf(path) + '\n';
    return *this;
  }
  [[nodiscard]] const std::string& text() const { return lines_; }

 private:
  std::string lines_;
};

void configure() {
  NAIPSConfig config;
  config.Mode(1);
  config.UseProxy(true);
  config.UserName(L"pilot with a name of some length");
  config.Password(L"a password too long to be stored in place");
}

/// A scenario that does what `submit` says with a new request of its kind; `list` writes what the
/// response holds, `paths` names its files.
template <class Response, class Submit, class List>
Scenario scenario(std::string name, Submit submit, const std::string& answer, List list,
                  std::set<std::wstring> procedures) {
  Scenario made;
  made.name = std::move(name);
  made.answer = answer;
  made.submit = [submit]() -> std::shared_ptr<const ResponseBase> {
    configure();
    return submit();
  };
  made.content = [list](const ResponseBase& response) {
    Lines lines;
    list(static_cast<const Response&>(response), lines);
    return lines.text();
  };
  made.files = [](const ResponseBase&) { return std::vector<std::wstring>(); };
  made.procedures = std::move(procedures);
  return made;
}

std::wstring submitOf(const std::wstring& word) {
  return L"submit of Class Module " + word;
}
std::wstring extractionOf(const std::wstring& word) {
  return L"extractData of Class Module " + word;
}
std::wstring appendToOf(const std::wstring& word) {
  return L"IAppendable_appendTo of Class Module " + word;
}

constexpr std::string_view longName = "A name too long to be stored in place";

std::string element(std::string_view name, std::string_view text) {
  std::string xml = "<n:";
  return xml.append(name).append(">").append(text).append("</n:").append(name).append(">");
}

// The account.

const auto listHolder = [](const AuthenticateRsp& response, Lines& lines) {
  lines << response.Name() << response.MOTD() << response.Email() << response.Scheduling()
        << response.AvfaxId();
};

Scenario login(std::string name, Way way) {
  Scenario made = scenario<AuthenticateRsp>(
      std::move(name),
      [way] {
        if (way == Way::https) NAIPSConfig().UseProxy(false);
        return AuthenticateRqs().submit();
      },
      success(element("name", longName) + element("motd", "Charts are late today,\nall of them") +
              element("email", "somebody@somewhere.example") + element("scheduling", "true") +
              element("avfax-id", "12345")),
      listHolder, {submitOf(L"AuthenticateRequest"), extractionOf(L"AuthenticateRsp")});
  made.way = way;
  return made;
}

Scenario refusedLogin() {
  Scenario made = login("RefusedLogin", Way::http);
  made.answer = answer("<n:answer status=\"FAILURE\">" +
                       element("info", "The password is not the account's") + "</n:answer>");
  return made;
}

Scenario faultyLogin() {
  Scenario made = login("FaultyLogin", Way::http);
  made.answer = answer(
      "<s:Fault><faultcode>s:Server</faultcode><faultstring>The service is out of order for some "
      "time</faultstring></s:Fault>");
  return made;
}

Scenario observedLogin() {
  Scenario made = login("ObservedLogin", Way::http);
  made.isObserved = true;
  return made;
}

Scenario passwordChange() {
  return scenario<ChangePasswordRsp>(
      "PasswordChange",
      [] {
        ChangePasswordRqs request;
        request.NewPassword(L"another password too long to be stored in place");
        request.Email(L"somebody@somewhere.example");
        return request.submit();
      },
      success(""), [](const ChangePasswordRsp&, Lines&) {}, {submitOf(L"ChangePasswordRequest")});
}

// Briefings.

std::string bytesOf(std::size_t size) {
  std::string bytes;
  for (std::uint32_t value = 1; bytes.size() < size; value = value * 1664525U + 1013904223U) {
    bytes += static_cast<char>(value >> 24U);
  }
  return bytes;
}

std::string base64(const std::string& bytes) {
  std::string encoded(4 * ((bytes.size() + 2) / 3) + 1, '\0');
  const std::vector<unsigned char> plain(bytes.begin(), bytes.end());
  EVP_EncodeBlock(reinterpret_cast<unsigned char*>(encoded.data()), plain.data(),  // NOLINT
                  static_cast<int>(plain.size()));
  encoded.pop_back();
  return encoded;
}

const std::vector<std::string>& products() {
  static const std::vector<std::string> all{bytesOf(9000), bytesOf(3001), bytesOf(500)};
  return all;
}

std::string withProducts() {
  std::string content = element("content", "TAF YSSY 210500Z 2106/2212 18012KT 9999");
  for (const std::string& each : products()) {
    content += "<n:product type=\"PNG\">" + element("content", base64(each)) + "</n:product>";
  }
  return success(content);
}

const auto listBriefing = [](const BriefingResponse& response, Lines& lines) {
  lines << response.Content();
  for (const auto& item : response) lines.file(item->File()) << item->ProductType();
};

template <class Submit>
Scenario briefing(std::string name, Submit submit, std::set<std::wstring> procedures) {
  procedures.insert(L"GetUniqueFilename of Class Module TempFileManager");
  Scenario made = scenario<BriefingResponse>(std::move(name), submit, withProducts(), listBriefing,
                                             std::move(procedures));
  made.products = products();
  made.files = [](const ResponseBase& response) {
    std::vector<std::wstring> files;
    for (const auto& item : static_cast<const BriefingResponse&>(response)) {
      files.push_back(item->File());
    }
    return files;
  };
  return made;
}

Scenario areaBriefing() {
  return briefing("AreaBriefing",
                  [] {
                    AreaBriefingRqs request;
                    request.addArea(L"20");
                    request.addArea(L"21");
                    request.setFlag(3, true);
                    request.briefingReq().Duration(6);
                    return request.submit();
                  },
                  {submitOf(L"AreaBriefRequest")});
}

Scenario locationBriefing() {
  Scenario made =
      briefing("LocationBriefing",
               [] {
                 LocationBriefingRqs request;
                 request.addLocation(L"YSSY");
                 request.addLocation(L"YMML");
                 request.setFlag(0, true);
                 request.briefingReq().From(at(2026, 3, 7, 1));
                 request.briefingReq().Till(at(2026, 3, 7, 9));
                 return request.submit();
               },
               {submitOf(L"LocationBriefRequest"), appendToOf(L"LocationBriefRequest")});
  made.hasEarlierProduct = true;
  return made;
}

template <class Submit>
Scenario textBriefing(std::string name, Submit submit, std::set<std::wstring> procedures) {
  return scenario<BriefingResponse>(
      std::move(name), submit,
      success(element("content", "C1234/26 RWY 16R/34L CLOSED DUE WORKS\nUNTIL FURTHER NOTICE")),
      listBriefing, std::move(procedures));
}

Scenario notamTexts() {
  return textBriefing("NotamTexts",
                      [] {
                        RetrieveFullTextNotamRqs request;
                        request.addKey(L"c1234/26 a key too long to be stored in place");
                        request.addKey(L"c1235/26");
                        return request.submit();
                      },
                      {submitOf(L"FullTextNotamRequest")});
}

Scenario raim() {
  return textBriefing("Raim",
                      [] {
                        RAIMRqs request;
                        request.addLocation(L"yssy");
                        request.addLocation(L"ymml");
                        return request.submit();
                      },
                      {submitOf(L"RAIMRequest")});
}

Scenario light() {
  return scenario<FirstLastLightRsp>(
      "Light",
      [] {
        FirstLastLightRqs request;
        request.ForDate(at(2026, 3, 7));
        request.setBearingDistance(L"sy", 45, 25);
        return request.submit();
      },
      success(element("date", "2026-03-07") + element("first", "2014Z") +
              element("last", longName)),
      [](const FirstLastLightRsp& response, Lines& lines) {
        lines << response.ForDate() << response.FirstLight() << response.LastLight();
      },
      {submitOf(L"FirstLastLightRequest"), appendToOf(L"FirstLastLightRequest"),
       extractionOf(L"FirstLastLightRsp"), L"pointFromName of Module Utils",
       L"Point_appendTo of Class Module CoordinatePoint"});
}

Scenario chart() {
  const auto product = [](const char* resolution, const std::string& bytes) {
    return std::string("<n:content type=\"PNG\" res=\"") + resolution + "\">" +
           element("content", base64(bytes)) + "</n:content>";
  };
  Scenario made = scenario<GetChartRsp>(
      "Chart",
      [] {
        GetChartRqs request;
        request.Key(L"a key too long to be stored in place");
        request.Resolution(L"HI");
        return request.submit();
      },
      success("<n:desc key=\"a key too long to be stored in place\">" + element("type", "PNG") +
              element("store-time", "2026-03-07T01:02:03Z") + element("name", longName) +
              "<n:res><n:product-res>HI</n:product-res></n:res></n:desc>" +
              product("HI", products()[0]) + product("LO", products()[1])),
      [](const GetChartRsp& response, Lines& lines) {
        if (const auto& description = response.ChartDescriptor()) {
          lines << description->Key() << description->Name() << description->StoreTime()
                << description->ProductType() << description->LowRes() << description->HighRes();
        }
        for (const auto& each : response) {
          lines.file(each->FilePath()) << each->ProductType() << each->Resolution();
        }
      },
      {submitOf(L"GetChartRequest"), extractionOf(L"GetChartRsp")});
  made.products = products();
  made.files = [](const ResponseBase& response) {
    std::vector<std::wstring> files;
    for (const auto& each : static_cast<const GetChartRsp&>(response)) {
      files.push_back(each->FilePath());
    }
    return files;
  };
  return made;
}

// Bulletins.

Scenario bulletin() {
  return briefing("Bulletin",
                  [] {
                    SPFIBRqs request;
                    const auto stage = std::make_shared<SPFIBStageSpec>();
                    stage->Departing(L"yssy");
                    stage->Destination(L"ymml");
                    stage->ETD(at(2026, 3, 7, 22, 0, 5));
                    stage->Route(std::make_shared<SPFIBRoute>());
                    const auto spec = std::make_shared<SPFIBSpec>();
                    spec->TAS(L"n0450");
                    spec->addStage(stage);
                    request.SPFIBSpec(spec);
                    request.Duration(6);
                    request.setFlag(1, true);
                    return request.submit();
                  },
                  {submitOf(L"SPFIBRequest"), appendToOf(L"SPFIBRequest"), appendToOf(L"SPFIBSpec"),
                   appendToOf(L"SPFIBStage"), L"pointFromName of Module Utils"});
}

Scenario storedBulletin() {
  return scenario<GetSPFIBRsp>(
      "StoredBulletin",
      [] {
        GetSPFIBRqs request;
        request.Number(L"a number too long to be stored in place");
        return request.submit();
      },
      success("<n:duration>PT6H</n:duration><n:spfib><n:tas>N0450</n:tas><n:acid>VHABC</n:acid>"
              "<n:stage><n:adep><n:loc>yssy</n:loc></n:adep><n:etd>2026-11-16T22:00:05Z</n:etd>"
              "<n:ades>ymml</n:ades><n:level>F350</n:level></n:stage></n:spfib>"),
      [](const GetSPFIBRsp& response, Lines& lines) {
        lines << response.Duration();
        const auto& spec = response.SPFIBSpec();
        if (spec == nullptr) return;
        lines << spec->TAS();
        for (const auto& stage : *spec) {
          lines << stage->Departing() << stage->Destination() << stage->ETD();
        }
      },
      {submitOf(L"GetSPFIBRequest"), extractionOf(L"GetSPFIBRsp"),
       L"pointFromName of Module Utils"});
}

Scenario windProfile() {
  return textBriefing("WindProfile",
                      [] {
                        WindTempProfileRqs request;
                        request.TAS(L"n0450");
                        const auto stage = std::make_shared<WindTempStage>();
                        stage->ETD(at(2026, 11, 16, 2, 23, 7));
                        stage->Depart(L"yssy");
                        stage->Destination(L"ymml");
                        stage->Route(L"wol h65 razzi q29 lizzi v279 ml");
                        request.addStage(stage);
                        return request.submit();
                      },
                      {submitOf(L"WindTempProfileRequest"), appendToOf(L"WindTempProfileRequest"),
                       appendToOf(L"SPFIBStage"), L"pointFromName of Module Utils"});
}

Scenario routeLookup() {
  return scenario<ResponseBase>(
      "RouteLookup",
      [] {
        GetRouteRqs request;
        request.Depart(L"yssy");
        request.Destination(L"ymml");
        request.Code(L"a code too long to be stored in place");
        return request.submit();
      },
      success("<n:route>" + element("code", longName) + "</n:route>"),
      [](const ResponseBase& response, Lines& lines) {
        if (const xml::Node payload = response.Payload()) lines << payload.text();
      },
      {submitOf(L"GetRouteRequest"), appendToOf(L"GetRoute")});
}

Scenario routeDirectory() {
  constexpr int routes = 300;
  std::string content;
  for (int i = 0; i < routes; ++i) {
    content += "<n:route>" + element("adep", "YSSY") + element("ades", "YMML") +
               element("code", "R" + std::to_string(i)) +
               element("description", "WOL H65 RAZZI Q29 LIZZI V279 ML") + "</n:route>";
  }
  return scenario<RouteDirectoryRsp>(
      "RouteDirectory",
      [] {
        RouteDirectoryRqs request;
        request.Depart(L"yssy");
        return request.submit();
      },
      success(content),
      [](const RouteDirectoryRsp& response, Lines& lines) {
        for (const auto& each : response) {
          lines << each->Depart() << each->Destination() << each->RouteCode()
                << each->Description();
        }
      },
      {submitOf(L"RouteDirectoryRequest"), extractionOf(L"RouteDirectoryRsp")});
}

// Flight notifications.

Scenario icaoFiling() {
  return scenario<SubmitICAOFlightNotifRsp>(
      "IcaoFiling",
      [] {
        SubmitICAOFlightNotifRqs request;
        const auto stage = std::make_shared<ICAOFlightNotifStage>();
        stage->Registration(L"vh-abc");
        stage->Aircraft(L"vh abc");
        stage->FlightRules(L"ifr");
        stage->TypeOfFlight(L"scheduled");
        stage->AircraftType(L"b738");
        stage->WTC(L"medium");
        stage->NavComEquip(L"s d f g e2 j5 q");
        stage->SSREquip(L"e b1 u2 q");
        stage->Depart(L"ymml");
        stage->Destination(L"yssy");
        stage->TEET(95);
        stage->ETD(at(2026, 3, 7, 23, 5));
        const auto segment = std::make_shared<ICAORouteSegment>();
        segment->ATSRouteId(L"h65");
        segment->setBearingDistance(L"sy", 45, 25);
        const auto route = std::make_shared<ICAORoute>();
        route->Speed(L"n0450");
        route->Level(L"f350");
        route->Add(segment);
        stage->Route(route);
        stage->OtherInfo(std::make_shared<ICAOOtherInfo>());
        stage->OtherInfo()->STS(L"hosp, medevac/state");
        stage->OtherInfo()->RMK(L"a remark too long to be stored in place");
        stage->SARTime(std::make_shared<SarTimeInfo>());
        stage->SARTime()->TBA(false);
        stage->SARTime()->Time(at(2026, 3, 8, 1, 30));
        stage->SupplInfo(std::make_shared<ICAOSupplInfo>());
        stage->SupplInfo()->POB(152);
        stage->SupplInfo()->setFlag(4, true);
        stage->SupplInfo()->Pilot()->Name(L"jo citizen");
        request.Notification()->Add(stage);
        return request.submit();
      },
      success(element("fpl-text", "(FPL-VHABC-IS\n-B738/M-SDE2FGJ5)") +
              element("fpl-text", "(FPL-VHABC-VG)")),
      [](const SubmitICAOFlightNotifRsp& response, Lines& lines) {
        for (const auto& each : response) lines << each;
      },
      {submitOf(L"SubmitICAOFlightNotifRqs"), appendToOf(L"SubmitICAOFlightNotifRqs"),
       appendToOf(L"ICAOFlightNotification"), appendToOf(L"ICAOFlightNotifStage"),
       appendToOf(L"ICAORoute"), appendToOf(L"ICAOOtherInfo"), appendToOf(L"ICAOSupplInfo"),
       appendToOf(L"SARTimeInfo"), appendToOf(L"PilotContactInfo"),
       L"navComStringToList of Class Module ICAOFlightNotifStage",
       L"ssrStringToList of Class Module ICAOFlightNotifStage",
       L"stsStringToList of Class Module ICAOOtherInfo",
       L"pbnStringToList of Class Module ICAOOtherInfo", L"pointFromName of Module Utils",
       L"minutesToDuration of Module Utils"});
}

Scenario sarTimeFiling() {
  return scenario<SubmitSARTimeNotifRsp>(
      "SarTimeFiling",
      [] {
        SubmitSARTimeNotifRqs request;
        SARTimeFlightNotif& notification = *request.Notification();
        notification.Aircraft(L"vh def");
        notification.AircraftType(L"c172");
        notification.Remarks(L"a remark too long to be stored in place");
        notification.Endurance(240);
        notification.POB(L"2+tban");
        notification.setFlag(0, true);
        notification.Pilot()->Name(L"jo citizen");
        notification.SarTimeInfo()->TBA(false);
        notification.SarTimeInfo()->Time(at(2026, 3, 8, 3, 0));
        const auto stage = std::make_shared<SARTimeFlightNotifStage>();
        stage->Depart(L"ysbk");
        stage->Destination(L"ycwr");
        stage->ETD(at(2026, 3, 7, 21, 0));
        stage->Add(L"parramatta");
        notification.Add(stage);
        return request.submit();
      },
      success(element("notif-text", longName)),
      [](const SubmitSARTimeNotifRsp& response, Lines& lines) { lines << response.NotifText(); },
      {submitOf(L"SubmitSARTimeFlightNotif"), appendToOf(L"SubmitSARTimeFlightNotification"),
       appendToOf(L"SARTimeNotification"), appendToOf(L"SARTimeNotificationStage"),
       appendToOf(L"SARTimeInfo"), appendToOf(L"PilotContactInfo"),
       L"sanitisePOB of Class Module SARTimeFlightNotif", L"minutesToDuration of Module Utils"});
}

Scenario activeFlights() {
  return scenario<ActiveFlightNotifDirRsp>(
      "ActiveFlights",
      [] {
        ActiveFlightNotifDirRqs request;
        request.Aircraft(L"vhabc");
        request.GroupId(L"A group with a name too long to be stored in place");
        return request.submit();
      },
      success("<n:flight-notif>" + element("route", "YSSY WOL H65 RAZZI Q29 LIZZI V279 ML YMML") +
              element("acid", "vhabc") + element("timestamp", "2026-03-07T23:05:01Z") +
              element("group-id", longName) + element("owner-id", "pilot1") +
              element("id", "4711") + "</n:flight-notif><n:flight-notif>" + element("id", "4712") +
              "</n:flight-notif>"),
      [](const ActiveFlightNotifDirRsp& response, Lines& lines) {
        for (const auto& each : response) {
          lines << each->Id() << each->OwnerId() << each->GroupId() << each->DTG()
                << each->Aircraft() << each->Route();
        }
      },
      {submitOf(L"FlightNotificationDir"), extractionOf(L"ActiveSPFIBDirRsp")});
}

}  // namespace

std::vector<Scenario> scenarios() {
  return {login("Login", Way::http),
          login("LoginOverHttps", Way::https),
          login("LoginAtANamedHost", Way::named),
          refusedLogin(),
          faultyLogin(),
          observedLogin(),
          passwordChange(),
          areaBriefing(),
          locationBriefing(),
          chart(),
          bulletin(),
          storedBulletin(),
          windProfile(),
          notamTexts(),
          raim(),
          light(),
          routeLookup(),
          routeDirectory(),
          icaoFiling(),
          sarTimeFiling(),
          activeFlights()};
}

}  // namespace ktpnaips::test
