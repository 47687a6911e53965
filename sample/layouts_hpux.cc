// HP-UX collector: big-endian.

#include "sample/layouts.h"

namespace ozmo::sample {
namespace {

enum : uint32_t {
  V520 = 1,
  V530 = 2,
  P300 = 4,
  P300_64 = 8,
  P720 = 16,
  P720_64 = 32,
  P730 = 64,
  P730_64 = 128,
  ANY_P730 = P730 | P730_64,
  FROM_P720 = P720 | P720_64 | ANY_P730,
  FROM_P300 = P300 | P300_64 | FROM_P720,
  FROM_V530 = V530 | FROM_P300,
  NARROW = V520 | V530 | P300 | P720 | P730,
  WIDE = P300_64 | P720_64 | P730_64,
  ALL = NARROW | WIDE,
};

constexpr VersionLayout VERSIONS[] = {
    {"P730_64", P730_64}, {"P730", P730}, {"P720_64", P720_64}, {"P720", P720},
    {"P300_64", P300_64}, {"P300", P300}, {"540", P300},        {"V530", V530},
    {"V525", V520},       {"V520", V520}, {"V510", V520},
};

// Processor time counts in ticks, a hundredth of a second each; disk times in microseconds, disk
// data in blocks of 64 bytes.
constexpr RecordLayout RECORDS[] = {
    {1, 0, ALL, "101-105:4*100 106-113:4 114-116:4*100"},
    {2, 0, NARROW, "201:t 202:4 203:4*16 204:4 205-206:8*1000000 207:4*1000 208:4*100"},
    {2, 0, WIDE, "201:t 202:8 203:8*16 204:8 205-206:8*1000000 207:8*1000 208:8*100"},
    {3, 0, NARROW, "301:8 302-328:4"},
    {3, 0, WIDE, "301:8 302:4 303-323:8 324-325:4 326-328:8"},
    {4, 0, NARROW, "401-405:4 406-407:4/100 408-416:4 417-418:t"},
    {4, 0, WIDE, "401-405:4 406-407:8/100 408-414:8 415:4 416:8 417-418:t"},
    {5, 0, ALL, "503:8 506:4 504-505:t 507:t 501-502:t 508:4 509-511:t 512-515:4"},
    {6, 0, NARROW, "601:4"},
    {6, 0, WIDE, "601:8"},
    {7, 0, ALL, "701-765:4"},
    {8, 0, ALL, "801:4 802-805:4*100 806-812:4"},
    {9, 0, FROM_V530, "901-902:t 903-909:4"},
    {11, 0, FROM_P300, "1001-1015:4 1017:4 1016:4 1018-1100:4"},
    {13, 0, ANY_P730, "1:t 2-7:8"},
    {15, 0, FROM_P720, "1501:t 1502-1508:8"},
    {16, 0, ANY_P730, "1-8:8"},
    {17, 1, ANY_P730, ""},
    {18, 2, ANY_P730, ""},
    {19, 3, ANY_P730, ""},
    {21, 4, ANY_P730, ""},
    {22, 11, ANY_P730, ""},
    {23, 8, ANY_P730, ""},
    {24, 9, ANY_P730, ""},
    {25, 15, ANY_P730, ""},
    {26, 16, ANY_P730, ""},
    {29, 13, ANY_P730, ""},
};

}  // namespace

const CollectorLayout& HpuxLayout() {
  static const CollectorLayout layout{VERSIONS, RECORDS};
  return layout;
}

}  // namespace ozmo::sample
