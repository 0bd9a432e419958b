#include "simulator/data/locations_tables.h"

namespace sim {

namespace {

constexpr Location table[] = {
    {"YARM", "ARMIDALE", "NSW", "NSW-E", -30.528, 151.617, 3556, 12, 'A'},
    {"YBHI", "BROKEN HILL", "NSW", "NSW-W", -32.001, 141.472, 958, 9, 'A'},
    {"YBKE", "BOURKE", "NSW", "NSW-W", -30.039, 145.952, 352, 10, 'A'},
    {"YBNA", "BALLINA/BYRON GATEWAY", "NSW", "NSW-E", -28.834, 153.562, 7, 12, 'A'},
    {"YBTH", "BATHURST", "NSW", "NSW-E", -33.409, 149.652, 2435, 12, 'A'},
    {"YCBA", "COBAR", "NSW", "NSW-W", -31.538, 145.794, 724, 10, 'A'},
    {"YCFS", "COFFS HARBOUR", "NSW", "NSW-E", -30.321, 153.116, 18, 12, 'A'},
    {"YCNK", "CESSNOCK", "NSW", "NSW-E", -32.788, 151.342, 211, 12, 'A'},
    {"YCOM", "COOMA/SNOWY MOUNTAINS", "NSW", "NSW-E", -36.301, 148.974, 3088, 12, 'A'},
    {"YGFN", "GRAFTON", "NSW", "NSW-E", -29.759, 153.030, 110, 12, 'A'},
    {"YGLB", "GOULBURN", "NSW", "NSW-E", -34.810, 149.726, 2141, 12, 'A'},
    {"YGTH", "GRIFFITH", "NSW", "NSW-W", -34.251, 146.067, 439, 11, 'A'},
    {"YLHI", "LORD HOWE ISLAND", "NSW", "NSW-E", -31.538, 159.077, 5, 14, 'A'},
    {"YLIS", "LISMORE", "NSW", "NSW-E", -28.830, 153.260, 35, 12, 'A'},
    {"YMAY", "ALBURY", "NSW", "VIC-E", -36.068, 146.958, 539, 12, 'A'},
    {"YMDG", "MUDGEE", "NSW", "NSW-E", -32.563, 149.611, 1545, 12, 'A'},
    {"YMER", "MERIMBULA", "NSW", "NSW-E", -36.909, 149.901, 7, 13, 'A'},
    {"YMOR", "MOREE", "NSW", "NSW-W", -29.499, 149.845, 701, 11, 'A'},
    {"YMRY", "MORUYA", "NSW", "NSW-E", -35.898, 150.144, 14, 13, 'A'},
    {"YNAR", "NARRANDERA", "NSW", "NSW-W", -34.702, 146.512, 474, 11, 'A'},
    {"YNBR", "NARRABRI", "NSW", "NSW-W", -30.319, 149.827, 788, 11, 'A'},
    {"YORG", "ORANGE", "NSW", "NSW-E", -33.382, 149.133, 3112, 12, 'A'},
    {"YPKS", "PARKES", "NSW", "NSW-W", -33.131, 148.239, 1069, 11, 'A'},
    {"YPMQ", "PORT MACQUARIE", "NSW", "NSW-E", -31.436, 152.863, 12, 12, 'A'},
    {"YSBK", "SYDNEY/BANKSTOWN", "NSW", "NSW-E", -33.924, 150.988, 34, 13, 'A'},
    {"YSCB", "CANBERRA", "ACT", "NSW-E", -35.307, 149.195, 1886, 12, 'A'},
    {"YSCN", "SYDNEY/CAMDEN", "NSW", "NSW-E", -34.040, 150.687, 230, 13, 'A'},
    {"YSDU", "DUBBO", "NSW", "NSW-W", -32.217, 148.575, 935, 11, 'A'},
    {"YSHL", "SHELLHARBOUR", "NSW", "NSW-E", -34.561, 150.789, 31, 13, 'A'},
    {"YSNW", "NOWRA", "NSW", "NSW-E", -34.949, 150.537, 400, 13, 'A'},
    {"YSRI", "RICHMOND", "NSW", "NSW-E", -33.601, 150.781, 67, 13, 'A'},
    {"YSSY", "SYDNEY/KINGSFORD SMITH", "NSW", "NSW-E", -33.946, 151.177, 21, 13, 'A'},
    {"YSTW", "TAMWORTH", "NSW", "NSW-E", -31.084, 150.847, 1334, 12, 'A'},
    {"YSWG", "WAGGA WAGGA", "NSW", "NSW-W", -35.165, 147.466, 724, 12, 'A'},
    {"YTRE", "TAREE", "NSW", "NSW-E", -31.889, 152.514, 38, 12, 'A'},
    {"YWLG", "WALGETT", "NSW", "NSW-W", -30.033, 148.126, 439, 11, 'A'},
    {"YWLM", "WILLIAMTOWN/NEWCASTLE", "NSW", "NSW-E", -32.795, 151.834, 31, 13, 'A'},

    {"YBDG", "BENDIGO", "VIC", "VIC-W", -36.739, 144.330, 705, 11, 'A'},
    {"YBLT", "BALLARAT", "VIC", "VIC-W", -37.512, 143.791, 1433, 11, 'A'},
    {"YBNS", "BAIRNSDALE", "VIC", "VIC-E", -37.888, 147.568, 165, 13, 'A'},
    {"YHML", "HAMILTON", "VIC", "VIC-W", -37.649, 142.065, 803, 10, 'A'},
    {"YHSM", "HORSHAM", "VIC", "VIC-W", -36.670, 142.173, 445, 10, 'A'},
    {"YLTV", "LATROBE VALLEY", "VIC", "VIC-E", -38.207, 146.470, 180, 12, 'A'},
    {"YMAV", "AVALON", "VIC", "VIC-W", -38.039, 144.469, 35, 12, 'A'},
    {"YMEN", "MELBOURNE/ESSENDON", "VIC", "VIC-W", -37.728, 144.902, 282, 12, 'A'},
    {"YMES", "EAST SALE", "VIC", "VIC-E", -38.099, 147.149, 23, 13, 'A'},
    {"YMIA", "MILDURA", "VIC", "VIC-W", -34.229, 142.086, 167, 10, 'A'},
    {"YMMB", "MELBOURNE/MOORABBIN", "VIC", "VIC-E", -37.976, 145.102, 55, 12, 'A'},
    {"YMML", "MELBOURNE/TULLAMARINE", "VIC", "VIC-W", -37.673, 144.843, 434, 12, 'A'},
    {"YMNG", "MANGALORE", "VIC", "VIC-E", -36.888, 145.184, 467, 12, 'A'},
    {"YMPC", "POINT COOK", "VIC", "VIC-W", -37.932, 144.753, 14, 12, 'A'},
    {"YPOD", "PORTLAND", "VIC", "VIC-W", -38.318, 141.471, 265, 10, 'A'},
    {"YSHT", "SHEPPARTON", "VIC", "VIC-E", -36.429, 145.393, 374, 11, 'A'},
    {"YSWH", "SWAN HILL", "VIC", "VIC-W", -35.376, 143.533, 234, 11, 'A'},
    {"YWBL", "WARRNAMBOOL", "VIC", "VIC-W", -38.295, 142.447, 242, 11, 'A'},
    {"YWGT", "WANGARATTA", "VIC", "VIC-E", -36.416, 146.307, 504, 12, 'A'},

    {"YCBG", "HOBART/CAMBRIDGE", "TAS", "TAS", -42.827, 147.475, 59, 15, 'A'},
    {"YDPO", "DEVONPORT", "TAS", "TAS", -41.170, 146.430, 33, 14, 'A'},
    {"YFLI", "FLINDERS ISLAND", "TAS", "TAS", -40.091, 147.993, 10, 14, 'A'},
    {"YKII", "KING ISLAND", "TAS", "TAS", -39.877, 143.878, 132, 12, 'A'},
    {"YMHB", "HOBART", "TAS", "TAS", -42.836, 147.510, 13, 15, 'A'},
    {"YMLT", "LAUNCESTON", "TAS", "TAS", -41.545, 147.214, 562, 14, 'A'},
    {"YSRN", "STRAHAN", "TAS", "TAS", -42.155, 145.292, 20, 14, 'A'},
    {"YWYY", "WYNYARD", "TAS", "TAS", -40.999, 145.731, 62, 14, 'A'},
};

}  // namespace

std::span<const Location> southEastLocations() {
  return table;
}

}  // namespace sim
