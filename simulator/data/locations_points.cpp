#include "simulator/data/locations_tables.h"

namespace sim {

namespace {

constexpr Location table[] = {
    {"AD", "ADELAIDE VOR", "SA", "SA", -34.947, 138.525, 20, 8, 'N'},
    {"AS", "ALICE SPRINGS VOR", "NT", "NT", -23.794, 133.874, 1830, 5, 'N'},
    {"BN", "BRISBANE VOR", "QLD", "QLD-S", -27.366, 153.137, 10, 11, 'N'},
    {"CB", "CANBERRA VOR", "ACT", "NSW-E", -35.268, 149.193, 2760, 12, 'N'},
    {"CS", "CAIRNS VOR", "QLD", "QLD-N", -16.850, 145.744, 20, 7, 'N'},
    {"DN", "DARWIN VOR", "NT", "NT", -12.409, 130.864, 100, 3, 'N'},
    {"HB", "HOBART VOR", "TAS", "TAS", -42.847, 147.531, 500, 15, 'N'},
    {"ML", "MELBOURNE VOR", "VIC", "VIC-W", -37.660, 144.842, 450, 12, 'N'},
    {"PH", "PERTH VOR", "WA", "WA-S", -31.947, 115.957, 65, -2, 'N'},
    {"SY", "SYDNEY VOR", "NSW", "NSW-E", -33.943, 151.181, 20, 13, 'N'},
    {"TL", "TOWNSVILLE TACAN", "QLD", "QLD-N", -19.243, 146.757, 20, 8, 'N'},
    {"WOL", "WOLLONGONG VOR", "NSW", "NSW-E", -34.558, 150.791, 30, 13, 'N'},

    {"ARBEY", "ARBEY", "VIC", "VIC-W", -37.060, 144.780, 0, 12, 'W'},
    {"AVBEG", "AVBEG", "NSW", "NSW-E", -34.905, 149.905, 0, 12, 'W'},
    {"BOREE", "BOREE", "NSW", "NSW-E", -32.780, 151.450, 0, 13, 'W'},
    {"BTJ", "BRIGHTON JETTY", "VIC", "VIC-W", -37.917, 144.983, 0, 12, 'W'},
    {"CARR", "CARRUM", "VIC", "VIC-E", -38.078, 145.120, 0, 12, 'W'},
    {"CULIN", "CULIN", "NSW", "NSW-E", -35.765, 148.055, 0, 12, 'W'},
    {"DOSEL", "DOSEL", "VIC", "VIC-E", -37.205, 145.905, 0, 12, 'W'},
    {"LIZZI", "LIZZI", "VIC", "VIC-E", -37.130, 145.620, 0, 12, 'W'},
    {"NONIX", "NONIX", "VIC", "VIC-E", -37.045, 145.320, 0, 12, 'W'},
    {"PSP", "PROSPECT RESERVOIR", "NSW", "NSW-E", -33.822, 150.897, 0, 13, 'W'},
    {"RAZZI", "RAZZI", "NSW", "NSW-E", -35.480, 148.720, 0, 12, 'W'},
    {"RIVET", "RIVET", "NSW", "NSW-E", -34.310, 150.470, 0, 13, 'W'},
    {"ROTTO", "ROTTNEST ISLAND", "WA", "WA-S", -32.005, 115.512, 0, -2, 'W'},
    {"SMOKA", "SMOKA", "QLD", "QLD-S", -27.850, 152.300, 0, 11, 'W'},
    {"SNOWY", "SNOWY", "NSW", "NSW-E", -35.925, 148.190, 0, 12, 'W'},
    {"TESAT", "TESAT", "NSW", "NSW-E", -34.210, 150.735, 0, 13, 'W'},
};

}  // namespace

std::span<const Location> pointLocations() {
  return table;
}

}  // namespace sim
