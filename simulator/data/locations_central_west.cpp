#include "simulator/data/locations_tables.h"

namespace sim {

namespace {

constexpr Location table[] = {
    {"YCBP", "COOBER PEDY", "SA", "SA", -29.040, 134.721, 740, 6, 'A'},
    {"YCDU", "CEDUNA", "SA", "SA", -32.131, 133.710, 77, 6, 'A'},
    {"YKSC", "KINGSCOTE", "SA", "SA", -35.714, 137.521, 24, 8, 'A'},
    {"YLEC", "LEIGH CREEK", "SA", "SA", -30.598, 138.426, 856, 8, 'A'},
    {"YMTG", "MOUNT GAMBIER", "SA", "SA", -37.746, 140.785, 212, 10, 'A'},
    {"YOLD", "OLYMPIC DAM", "SA", "SA", -30.485, 136.877, 343, 7, 'A'},
    {"YPAD", "ADELAIDE", "SA", "SA", -34.945, 138.531, 20, 8, 'A'},
    {"YPAG", "PORT AUGUSTA", "SA", "SA", -32.507, 137.717, 56, 8, 'A'},
    {"YPED", "EDINBURGH", "SA", "SA", -34.703, 138.621, 67, 8, 'A'},
    {"YPLC", "PORT LINCOLN", "SA", "SA", -34.605, 135.880, 36, 7, 'A'},
    {"YPPF", "ADELAIDE/PARAFIELD", "SA", "SA", -34.793, 138.633, 57, 8, 'A'},
    {"YPWR", "WOOMERA", "SA", "SA", -31.144, 136.817, 548, 7, 'A'},
    {"YREN", "RENMARK", "SA", "SA", -34.196, 140.674, 115, 9, 'A'},
    {"YWHA", "WHYALLA", "SA", "SA", -33.059, 137.514, 41, 7, 'A'},

    {"YAYE", "AYERS ROCK", "NT", "NT", -25.186, 130.976, 1626, 5, 'A'},
    {"YBAS", "ALICE SPRINGS", "NT", "NT", -23.807, 133.902, 1789, 5, 'A'},
    {"YGTE", "GROOTE EYLANDT", "NT", "NT", -13.975, 136.460, 53, 4, 'A'},
    {"YMGD", "MANINGRIDA", "NT", "NT", -12.056, 134.234, 123, 4, 'A'},
    {"YPDN", "DARWIN", "NT", "NT", -12.415, 130.877, 103, 3, 'A'},
    {"YPGV", "GOVE", "NT", "NT", -12.269, 136.818, 192, 4, 'A'},
    {"YPTN", "TINDAL", "NT", "NT", -14.521, 132.378, 443, 4, 'A'},
    {"YTNK", "TENNANT CREEK", "NT", "NT", -19.634, 134.183, 1236, 5, 'A'},

    {"YABA", "ALBANY", "WA", "WA-S", -34.943, 117.809, 233, -1, 'A'},
    {"YBLN", "BUSSELTON MARGARET RIVER", "WA", "WA-S", -33.688, 115.402, 55, -2, 'A'},
    {"YBRM", "BROOME", "WA", "WA-N", -17.945, 122.232, 56, 2, 'A'},
    {"YCAR", "CARNARVON", "WA", "WA-S", -24.881, 113.672, 13, 0, 'A'},
    {"YDBY", "DERBY", "WA", "WA-N", -17.370, 123.661, 24, 2, 'A'},
    {"YESP", "ESPERANCE", "WA", "WA-S", -33.684, 121.823, 470, 0, 'A'},
    {"YFRT", "FORREST", "WA", "WA-S", -30.838, 128.115, 511, 3, 'A'},
    {"YGEL", "GERALDTON", "WA", "WA-S", -28.796, 114.707, 121, -1, 'A'},
    {"YHLC", "HALLS CREEK", "WA", "WA-N", -18.234, 127.670, 1346, 3, 'A'},
    {"YMEK", "MEEKATHARRA", "WA", "WA-S", -26.612, 118.548, 1713, 0, 'A'},
    {"YNWN", "NEWMAN", "WA", "WA-N", -23.418, 119.803, 1724, 1, 'A'},
    {"YPBO", "PARABURDOO", "WA", "WA-N", -23.171, 117.745, 1406, 0, 'A'},
    {"YPCC", "COCOS (KEELING) ISLANDS", "WA", "WA-N", -12.188, 96.834, 10, -2, 'A'},
    {"YPEA", "PEARCE", "WA", "WA-S", -31.668, 116.015, 149, -2, 'A'},
    {"YPJT", "PERTH/JANDAKOT", "WA", "WA-S", -32.097, 115.881, 99, -2, 'A'},
    {"YPKA", "KARRATHA", "WA", "WA-N", -20.712, 116.773, 29, 1, 'A'},
    {"YPKG", "KALGOORLIE-BOULDER", "WA", "WA-S", -30.789, 121.462, 1203, 0, 'A'},
    {"YPKU", "KUNUNURRA", "WA", "WA-N", -15.778, 128.708, 145, 3, 'A'},
    {"YPLM", "LEARMONTH", "WA", "WA-N", -22.236, 114.089, 19, 0, 'A'},
    {"YPPD", "PORT HEDLAND", "WA", "WA-N", -20.378, 118.626, 33, 1, 'A'},
    {"YPPH", "PERTH", "WA", "WA-S", -31.940, 115.967, 67, -2, 'A'},
    {"YPXM", "CHRISTMAS ISLAND", "WA", "WA-N", -10.451, 105.690, 916, 0, 'A'},
};

}  // namespace

std::span<const Location> centralAndWesternLocations() {
  return table;
}

}  // namespace sim
