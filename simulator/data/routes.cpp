#include "simulator/data/routes.h"

#include <algorithm>

#include "simulator/data/text.h"

namespace sim {

namespace {

constexpr StandardRoute table[] = {
    {"YSSY", "YMML", "A1", "SYDNEY - MELBOURNE VIA WOL (JET)", "DCT WOL H65 RAZZI Q29 LIZZI DCT",
     true},
    {"YSSY", "YMML", "B1", "SYDNEY - MELBOURNE VIA TESAT (NON JET)",
     "DCT TESAT H20 SNOWY V169 LIZZI DCT", true},
    {"YMML", "YSSY", "A1", "MELBOURNE - SYDNEY VIA RIVET (JET)", "DCT DOSEL Y59 RIVET DCT", true},
    {"YMML", "YSSY", "B1", "MELBOURNE - SYDNEY VIA NONIX (NON JET)",
     "DCT NONIX V169 CULIN W817 RIVET DCT", true},
    {"YSSY", "YBBN", "A1", "SYDNEY - BRISBANE VIA OLSEM (JET)",
     "DCT OLSEM Y193 BANDA Y43 BERNI DCT", true},
    {"YBBN", "YSSY", "A1", "BRISBANE - SYDNEY VIA BOREE (JET)", "DCT SANEG H62 IGDAM Y20 BOREE DCT",
     true},
    {"YMML", "YBBN", "A1", "MELBOURNE - BRISBANE INLAND", "DCT NONIX Q94 PKS Y177 SMOKA DCT", true},
    {"YBBN", "YMML", "A1", "BRISBANE - MELBOURNE INLAND", "DCT WACKO Q67 TW Q60 ARBEY DCT", true},
    {"YMML", "YPAD", "A1", "MELBOURNE - ADELAIDE", "DCT BATMU Q33 DRINA DCT", true},
    {"YPAD", "YMML", "A1", "ADELAIDE - MELBOURNE", "DCT AVDEN Q158 WENDY DCT", true},
    {"YSSY", "YSCB", "A1", "SYDNEY - CANBERRA", "DCT WOL W112 AVBEG DCT", true},
    {"YMML", "YSCB", "H1", "MELBOURNE - CANBERRA", "DCT NONIX V169 CULIN DCT", true},
    {"YMML", "YMAV", "H12", "MELBOURNE - AVALON", "DCT", true},
    {"YSCB", "YSSY", "A1", "CANBERRA - SYDNEY", "DCT AVBEG W137 RIVET DCT", true},
    {"YMML", "YMHB", "A1", "MELBOURNE - HOBART", "DCT DUNBO Q169 MORGO DCT", true},
    {"YMHB", "YMML", "A1", "HOBART - MELBOURNE", "DCT CLARK H215 WAREN DCT", true},
    {"YBBN", "YBCS", "A1", "BRISBANE - CAIRNS COASTAL", "DCT BN V179 KEEWI Y33 CS DCT", true},
    {"YBCS", "YPDN", "A1", "CAIRNS - DARWIN", "DCT CS J64 NTN J141 DN DCT", true},
    {"YPAD", "YPPH", "A1", "ADELAIDE - PERTH", "DCT GILLA Q12 SAPED Y15 BEVLY DCT", true},
    {"YPPH", "YSSY", "A1", "PERTH - SYDNEY VIA THE BIGHT", "DCT SOLUS Y53 WENDY Q27 RIVET DCT",
     true},
    {"YPDN", "YBAS", "A1", "DARWIN - ALICE SPRINGS", "DCT DN J30 TNK J251 AS DCT", true},
    {"YPPH", "YBRM", "A1", "PERTH - BROOME", "DCT MANDU T90 MRW J19 BRM DCT", true},
    {"YSSY", "NZAA", "I1", "SYDNEY - AUCKLAND", "DCT EVONN L521 AA DCT", false},
    {"YMML", "NZCH", "I1", "MELBOURNE - CHRISTCHURCH", "DCT KEPPA M625 ATNOP P766 CH DCT", false},
    {"YSSY", "WSSS", "I1", "SYDNEY - SINGAPORE", "DCT KAT A576 ATMAP DCT ONOXA M635 SURGA DCT",
     false},
    {"YBBN", "AYPY", "I1", "BRISBANE - PORT MORESBY", "DCT BN B220 DENBI A215 PY DCT", false},
    {"YPPH", "WADD", "I1", "PERTH - BALI", "DCT OTLED A587 KADUM W36 BLI DCT", false},
};

bool matches(std::string_view wanted, std::string_view code) {
  return wanted.empty() || equalIgnoringCase(wanted, code);
}

}  // namespace

std::span<const StandardRoute> routes() {
  return table;
}

std::vector<const StandardRoute*> routesBetween(std::string_view adep, std::string_view ades,
                                                bool domesticOnly) {
  std::vector<const StandardRoute*> found;
  for (const StandardRoute& route : table) {
    if (matches(adep, route.adep) && matches(ades, route.ades) &&
        (route.domestic || !domesticOnly)) {
      found.push_back(&route);
    }
  }
  return found;
}

const StandardRoute* findRoute(std::string_view adep, std::string_view ades,
                               std::string_view code) {
  const auto found = std::ranges::find_if(table, [&](const StandardRoute& route) {
    return equalIgnoringCase(adep, route.adep) && equalIgnoringCase(ades, route.ades) &&
           equalIgnoringCase(code, route.code);
  });
  return found == std::end(table) ? nullptr : found;
}

}  // namespace sim
