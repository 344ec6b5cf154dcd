#include "fakes/FakeTextMeasure.h"

#include <array>

namespace korvanta::fakes {

namespace {

constexpr char16_t firstMeasured = u' ';
constexpr std::size_t measured = 351;
constexpr int unitsPerEm = 2048;
constexpr int lineUnits = 2472;  // ascent and descent
constexpr int pointsPerInch = 72;
constexpr int twipsPerInch = 1440;
constexpr int points = 8;

// Advance widths of the characters from U+0020 on, 0 for a character that the font lacks.
// clang-format off
constexpr std::array<std::uint16_t, measured> regularAdvances = {
    639, 680, 821, 1491, 1118, 2001, 1380, 432, 784, 784, 1118, 1491, 621, 743, 621, 782, 1118, 1118, 1118, 1118,
    1118, 1118, 1118, 1118, 1118, 1118, 725, 725, 1491, 1491, 1491, 971, 1862, 1229, 1206, 1231, 1389, 1149, 1067,
    1366, 1382, 764, 854, 1204, 1020, 1579, 1366, 1450, 1128, 1450, 1272, 1141, 1196, 1343, 1223, 1847, 1190, 1180,
    1145, 784, 782, 784, 1491, 1118, 1118, 1075, 1133, 944, 1133, 1077, 651, 1133, 1143, 469, 578, 1020, 469, 1720,
    1143, 1112, 1133, 1133, 737, 913, 684, 1143, 1020, 1520, 1014, 1020, 909, 983, 782, 983, 1491, 1000, 0, 0, 0, 0,
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 639, 680, 1118, 1118, 1118,
    1118, 782, 1118, 1118, 1903, 1010, 1174, 1491, 744, 1903, 1118, 965, 1491, 1010, 1010, 1118, 1163, 1118, 621,
    1118, 1010, 1010, 1174, 2048, 2048, 2048, 971, 1229, 1229, 1229, 1229, 1229, 1229, 1870, 1231, 1149, 1149, 1149,
    1149, 764, 764, 764, 764, 1430, 1366, 1450, 1450, 1450, 1450, 1450, 1491, 1450, 1343, 1343, 1343, 1343, 1180,
    1157, 1122, 1075, 1075, 1075, 1075, 1075, 1075, 1802, 944, 1077, 1077, 1077, 1077, 469, 469, 469, 469, 1118, 1143,
    1112, 1112, 1112, 1112, 1112, 1491, 1112, 1143, 1143, 1143, 1143, 1020, 1133, 1020, 1229, 1075, 1229, 1075, 1229,
    1075, 1231, 944, 1231, 944, 1231, 956, 1231, 944, 1389, 1407, 1389, 1133, 1149, 1077, 1149, 1077, 1149, 1077,
    1149, 1077, 1149, 1077, 1366, 1133, 1366, 1133, 1366, 1133, 1366, 1133, 1382, 1143, 1382, 1143, 764, 469, 764,
    469, 764, 469, 764, 469, 764, 469, 0, 0, 0, 0, 0, 0, 0, 1020, 469, 0, 0, 1020, 469, 0, 0, 1238, 561, 1366, 1143,
    0, 0, 1366, 1143, 0, 0, 0, 0, 0, 0, 0, 1450, 1112, 2001, 1862, 1272, 737, 0, 0, 1272, 737, 1141, 913, 0, 0, 1141,
    913, 1141, 913, 1196, 684, 1196, 684, 0, 0, 0, 0, 1343, 1143, 0, 0, 1343, 1143, 1343, 1143, 1343, 1143, 0, 0, 0,
    0, 1180, 1145, 909, 1145, 909, 1145, 909,
};
constexpr std::array<std::uint16_t, measured> boldAdvances = {
    600, 702, 1002, 1676, 1304, 2455, 1600, 564, 930, 930, 1304, 1676, 640, 883, 640, 1182, 1304, 1304, 1304, 1304,
    1304, 1304, 1304, 1304, 1304, 1304, 744, 744, 1676, 1676, 1676, 1160, 1884, 1402, 1405, 1367, 1551, 1260, 1190,
    1526, 1565, 990, 1025, 1426, 1172, 1829, 1578, 1577, 1346, 1577, 1487, 1297, 1254, 1513, 1382, 2105, 1402, 1373,
    1275, 930, 1182, 930, 1676, 1304, 1118, 1226, 1294, 1080, 1289, 1216, 783, 1289, 1311, 618, 743, 1234, 618, 1953,
    1311, 1264, 1289, 1289, 888, 1054, 851, 1311, 1185, 1822, 1238, 1179, 1030, 1276, 1304, 1276, 1676, 1000, 0, 0, 0,
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 600, 702, 1304, 1304, 1304,
    1304, 1304, 1304, 1118, 1902, 1040, 1440, 1676, 883, 1902, 0, 1064, 1676, 1104, 1104, 1118, 1333, 1304, 744, 1080,
    1104, 1104, 1440, 2310, 2310, 2310, 1160, 1402, 1402, 1402, 1402, 1402, 1402, 2025, 1367, 1260, 1260, 1260, 1260,
    990, 990, 990, 990, 1585, 1578, 1577, 1577, 1577, 1577, 1577, 1676, 1577, 1513, 1513, 1513, 1513, 1373, 1350,
    1322, 1226, 1226, 1226, 1226, 1226, 1226, 1919, 1080, 1216, 1216, 1216, 1216, 618, 618, 618, 618, 1269, 1311,
    1264, 1264, 1264, 1264, 1264, 1676, 1264, 1311, 1311, 1311, 1311, 1179, 1289, 1179, 1402, 1226, 1402, 1226, 1402,
    1226, 1367, 1080, 1367, 1080, 1367, 1080, 1367, 1080, 1551, 1674, 1585, 1280, 1260, 1216, 1260, 1216, 1260, 1216,
    1260, 1216, 1260, 1216, 1526, 1289, 1526, 1289, 1526, 1289, 1526, 1289, 1565, 1311, 1601, 1301, 990, 618, 990,
    618, 990, 618, 990, 618, 990, 618, 0, 0, 0, 0, 0, 0, 0, 1172, 618, 0, 0, 1172, 1003, 0, 0, 1206, 686, 1578, 1311,
    0, 0, 1578, 1311, 0, 0, 0, 0, 0, 0, 0, 1577, 1264, 2123, 2018, 1487, 888, 0, 0, 1487, 888, 1297, 1054, 0, 0, 1297,
    1054, 1297, 1054, 1254, 851, 1254, 1268, 0, 0, 0, 0, 1513, 1311, 0, 0, 1513, 1311, 1513, 1311, 1513, 1311, 0, 0,
    0, 0, 1373, 1275, 1077, 1275, 1077, 1275, 1077,
};
// clang-format on

// Like Windows, which uses whole pixels for sizes and widths.
int Rounded(int value, int times, int by) {
    return (value * times + by / 2) / by;
}

int AdvanceUnits(char16_t unit, bool bold) {
    const std::size_t index = static_cast<std::size_t>(unit) - firstMeasured;
    const auto& advances = bold ? boldAdvances : regularAdvances;
    return unit >= firstMeasured && index < measured && advances[index] != 0 ? advances[index] : unitsPerEm;
}

// The visible part of a caption: without a single "&", and with one "&" for "&&".
std::u16string Drawn(const std::u16string& caption) {
    std::u16string drawn;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && i + 1 < caption.size()) {
            ++i;
        }
        drawn += caption[i];
    }
    return drawn;
}

}  // namespace

int FakeTextMeasure::Width(const std::u16string& caption, bool bold) {
    const std::u16string drawn = Drawn(caption);
    if (dotsPerInch == 0) {
        return static_cast<int>(drawn.size()) * (bold ? boldCharacterWidth : characterWidth);
    }
    const int pixelsPerEm = Rounded(points, dotsPerInch, pointsPerInch);
    int pixels = 0;
    for (const char16_t unit : drawn) {
        pixels += Rounded(AdvanceUnits(unit, bold), pixelsPerEm, unitsPerEm);
    }
    return Rounded(pixels, twipsPerInch, dotsPerInch);
}

int FakeTextMeasure::LineHeight(bool bold) {
    if (dotsPerInch == 0) {
        return bold ? boldLineHeight : lineHeight;
    }
    const int pixelsPerEm = Rounded(points, dotsPerInch, pointsPerInch);
    return Rounded(Rounded(lineUnits, pixelsPerEm, unitsPerEm), twipsPerInch, dotsPerInch);
}

}  // namespace korvanta::fakes
