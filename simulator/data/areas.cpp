#include "simulator/data/areas.h"

#include <algorithm>

#include "simulator/data/text.h"

namespace sim {

namespace {

// Areas whose places follow from the places' own data.
constexpr std::pair<std::string_view, std::string_view> derivedAreas[] = {
    {"NSW-E", "NEW SOUTH WALES EAST"},
    {"NSW-W", "NEW SOUTH WALES WEST"},
    {"NT", "NORTHERN TERRITORY"},
    {"QLD-N", "QUEENSLAND NORTH"},
    {"QLD-S", "QUEENSLAND SOUTH"},
    {"SA", "SOUTH AUSTRALIA"},
    {"TAS", "TASMANIA"},
    {"VIC", "VICTORIA"},
    {"VIC-E", "VICTORIA EAST"},
    {"VIC-W", "VICTORIA WEST"},
    {"WA-N", "WESTERN AUSTRALIA NORTH"},
    {"WA-S", "WESTERN AUSTRALIA SOUTH"},
    {"YBBB", "BRISBANE FIR"},
    {"YMMM", "MELBOURNE FIR"},
};

const ForecastArea numberedAreas[] = {
    {"20",
     "NEW ENGLAND AND NORTH COAST",
     {"YARM", "YBNA", "YCFS", "YGFN", "YLIS", "YMOR", "YNBR", "YPMQ", "YSTW", "YTRE"}},
    {"21",
     "SYDNEY AND SOUTH EAST",
     {"YBTH", "YCNK", "YCOM", "YGLB", "YMDG", "YMER", "YMRY", "YORG", "YSBK", "YSCB", "YSCN",
      "YSHL", "YSNW", "YSRI", "YSSY", "YWLM"}},
    {"22",
     "WESTERN SLOPES AND PLAINS",
     {"YBHI", "YBKE", "YCBA", "YGTH", "YNAR", "YPKS", "YSDU", "YSWG", "YWLG"}},
    {"30",
     "MELBOURNE AND GIPPSLAND",
     {"YBDG", "YBLT", "YBNS", "YLTV", "YMAV", "YMAY", "YMEN", "YMES", "YMMB", "YMML", "YMNG",
      "YMPC", "YSHT", "YWGT"}},
    {"32", "MALLEE AND WIMMERA", {"YHML", "YHSM", "YMIA", "YPOD", "YSWH", "YWBL"}},
    {"40",
     "SOUTH EAST QUEENSLAND",
     {"YBAF", "YBBN", "YBCG", "YBOK", "YBSU", "YBUD", "YBWW", "YHBA", "YKRY", "YMYB", "YTWB"}},
    {"41", "WARREGO AND MARANOA", {"YBCV", "YCMU", "YROM"}},
    {"43", "CENTRAL WEST QUEENSLAND", {"YBDV", "YBMA", "YLRE"}},
    {"44", "CAPRICORNIA AND CENTRAL COAST", {"YBHM", "YBMK", "YBPN", "YBRK", "YEML", "YGLA"}},
    {"45",
     "NORTH TROPICAL COAST AND PENINSULA",
     {"YBCS", "YBTL", "YBWP", "YCKN", "YHID", "YIFL", "YMBA", "YNTN"}},
    {"50", "ADELAIDE AND SOUTH EAST", {"YKSC", "YMTG", "YPAD", "YPED", "YPPF", "YREN"}},
    {"51",
     "EYRE PENINSULA AND NORTH",
     {"YCBP", "YCDU", "YLEC", "YOLD", "YPAG", "YPLC", "YPWR", "YWHA"}},
    {"60", "PERTH AND SOUTH WEST", {"YABA", "YBLN", "YPEA", "YPJT", "YPPH"}},
    {"61", "GOLDFIELDS AND EUCLA", {"YESP", "YFRT", "YPKG"}},
    {"62", "GASCOYNE AND CENTRAL WEST", {"YCAR", "YGEL", "YMEK"}},
    {"66", "PILBARA", {"YNWN", "YPBO", "YPKA", "YPLM", "YPPD"}},
    {"69", "KIMBERLEY", {"YBRM", "YDBY", "YHLC", "YPKU"}},
    {"70", "TASMANIA", {"YCBG", "YDPO", "YFLI", "YKII", "YMHB", "YMLT", "YSRN", "YWYY"}},
    {"80", "TOP END", {"YGTE", "YMGD", "YPDN", "YPGV", "YPTN"}},
    {"85", "ALICE SPRINGS AND BARKLY", {"YAYE", "YBAS", "YTNK"}},
};

bool lies(const Location& location, std::string_view area) {
  if (area == "YBBB" || area == "YMMM") {
    return firOf(location) == area;
  }
  return location.area == area || (area == "VIC" && location.area.starts_with("VIC-"));
}

std::vector<ForecastArea> buildAreas() {
  std::vector<ForecastArea> all(std::begin(numberedAreas), std::end(numberedAreas));
  for (const auto& [code, name] : derivedAreas) {
    ForecastArea area{code, name, {}};
    for (const Location& location : locations()) {
      if (location.kind == 'A' && lies(location, code)) {
        area.locationCodes.push_back(location.code);
      }
    }
    all.push_back(std::move(area));
  }
  return all;
}

}  // namespace

std::span<const ForecastArea> areas() {
  static const std::vector<ForecastArea> all = buildAreas();
  return all;
}

const ForecastArea* findArea(std::string_view code) {
  const auto all = areas();
  const auto found = std::ranges::find_if(
      all, [code](const ForecastArea& area) { return equalIgnoringCase(area.code, code); });
  return found == all.end() ? nullptr : &*found;
}

bool isFir(const ForecastArea& area) {
  return area.code == "YBBB" || area.code == "YMMM";
}

std::string_view firOf(const Location& location) {
  const bool brisbane =
      location.state == "QLD" || location.state == "NT" ||
      (location.state == "NSW" && location.latitude > -32.0 && location.longitude > 145.0) ||
      (location.state == "WA" && location.latitude > -19.0 && location.longitude > 120.0);
  return brisbane ? "YBBB" : "YMMM";
}

std::string_view firOf(const ForecastArea& area) {
  if (isFir(area)) {
    return area.code;
  }
  const Location* first =
      area.locationCodes.empty() ? nullptr : findLocation(area.locationCodes[0]);
  return first ? firOf(*first) : "YMMM";
}

}  // namespace sim
