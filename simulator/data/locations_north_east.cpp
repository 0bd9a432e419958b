#include "simulator/data/locations_tables.h"

namespace sim {

namespace {

constexpr Location table[] = {
    {"YBAF", "BRISBANE/ARCHERFIELD", "QLD", "QLD-S", -27.570, 153.008, 65, 11, 'A'},
    {"YBBN", "BRISBANE", "QLD", "QLD-S", -27.384, 153.118, 13, 11, 'A'},
    {"YBCG", "GOLD COAST", "QLD", "QLD-S", -28.164, 153.505, 21, 11, 'A'},
    {"YBCS", "CAIRNS", "QLD", "QLD-N", -16.886, 145.755, 10, 7, 'A'},
    {"YBCV", "CHARLEVILLE", "QLD", "QLD-S", -26.413, 146.262, 1003, 9, 'A'},
    {"YBDV", "BIRDSVILLE", "QLD", "QLD-S", -25.898, 139.348, 159, 7, 'A'},
    {"YBHM", "HAMILTON ISLAND", "QLD", "QLD-N", -20.358, 148.952, 15, 8, 'A'},
    {"YBMA", "MOUNT ISA", "QLD", "QLD-N", -20.664, 139.489, 1121, 6, 'A'},
    {"YBMK", "MACKAY", "QLD", "QLD-N", -21.172, 149.180, 19, 9, 'A'},
    {"YBOK", "OAKEY", "QLD", "QLD-S", -27.411, 151.735, 1335, 11, 'A'},
    {"YBPN", "WHITSUNDAY COAST/PROSERPINE", "QLD", "QLD-N", -20.495, 148.552, 82, 8, 'A'},
    {"YBRK", "ROCKHAMPTON", "QLD", "QLD-S", -23.382, 150.475, 34, 9, 'A'},
    {"YBSU", "SUNSHINE COAST", "QLD", "QLD-S", -26.603, 153.091, 15, 11, 'A'},
    {"YBTL", "TOWNSVILLE", "QLD", "QLD-N", -19.253, 146.765, 18, 8, 'A'},
    {"YBUD", "BUNDABERG", "QLD", "QLD-S", -24.904, 152.319, 107, 10, 'A'},
    {"YBWP", "WEIPA", "QLD", "QLD-N", -12.679, 141.925, 63, 5, 'A'},
    {"YBWW", "BRISBANE WEST WELLCAMP", "QLD", "QLD-S", -27.558, 151.793, 1509, 11, 'A'},
    {"YCKN", "COOKTOWN", "QLD", "QLD-N", -15.445, 145.184, 26, 6, 'A'},
    {"YCMU", "CUNNAMULLA", "QLD", "QLD-S", -28.030, 145.622, 630, 10, 'A'},
    {"YEML", "EMERALD", "QLD", "QLD-S", -23.568, 148.179, 624, 9, 'A'},
    {"YGLA", "GLADSTONE", "QLD", "QLD-S", -23.870, 151.223, 64, 10, 'A'},
    {"YHBA", "HERVEY BAY", "QLD", "QLD-S", -25.319, 152.880, 60, 10, 'A'},
    {"YHID", "HORN ISLAND", "QLD", "QLD-N", -10.586, 142.290, 43, 5, 'A'},
    {"YIFL", "INNISFAIL", "QLD", "QLD-N", -17.559, 146.012, 46, 7, 'A'},
    {"YKRY", "KINGAROY", "QLD", "QLD-S", -26.581, 151.841, 1492, 11, 'A'},
    {"YLRE", "LONGREACH", "QLD", "QLD-S", -23.434, 144.280, 627, 8, 'A'},
    {"YMBA", "MAREEBA", "QLD", "QLD-N", -17.069, 145.419, 1560, 7, 'A'},
    {"YMYB", "MARYBOROUGH", "QLD", "QLD-S", -25.513, 152.715, 38, 10, 'A'},
    {"YNTN", "NORMANTON", "QLD", "QLD-N", -17.684, 141.070, 73, 6, 'A'},
    {"YROM", "ROMA", "QLD", "QLD-S", -26.545, 148.775, 1032, 10, 'A'},
    {"YSNF", "NORFOLK ISLAND", "NSW", "NSW-E", -29.042, 167.939, 371, 15, 'A'},
    {"YTWB", "TOOWOOMBA", "QLD", "QLD-S", -27.543, 151.916, 2086, 11, 'A'},
};

}  // namespace

std::span<const Location> northEastLocations() {
  return table;
}

}  // namespace sim
