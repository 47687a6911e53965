// Tru64 collector: little-endian.

#include "sample/layouts.h"

namespace ozmo::sample {
namespace {

enum : uint32_t {
  V520 = 1,
  P300 = 2,
  P720 = 4,
  P730 = 8,
  FROM_P720 = P720 | P730,
  FROM_P300 = P300 | FROM_P720,
  ALL = V520 | FROM_P300,
};

constexpr VersionLayout VERSIONS[] = {
    {"P730", P730}, {"P720", P720}, {"P300", P300}, {"V530", P300},
    {"V520", V520}, {"V510", V520}, {"V505", V520},
};

// Processors count 1024 ticks a second. What a process used of the machine counts in millionths of
// a percent, before P720 in hundredths.
constexpr RecordLayout RECORDS[] = {
    {1, 0, ALL, "101-108:4"},
    {2, 0, ALL, "201:t 202-203:8 204-207:8/100"},
    {3, 0, ALL, "301-302:4 303-330:8 331-332:4 333-334:8"},
    {4, 0, FROM_P720, "411:t 418:t 407-408:8*1000000 409-410:8 412-415:8 417:8 401-406:4 419-420:4"},
    {4, 0, V520 | P300, "401-406:4 407-408:8/100 409-410:8 412-417:8 411:t 418:t 421:t 419-420:4"},
    {5, 0, P730, "501:4 503:4 502:t 504-506:t 507:4 508-510:t 511-513:4 515:4"},
    {5, 0, V520 | P300 | P720, "501:4 503:4 502:t 504-506:t 507:4 508-510:t 511-513:4"},
    {6, 0, ALL, "601-602:t"},
    {7, 0, ALL, "701-703:t"},
    {8, 0, ALL, "801-803:4 804-808:8*1024 809:4"},
    {9, 0, ALL, "901:4"},
    {11, 0, ALL, "1101-1129:4"},
    {12, 0, FROM_P300, "1201-1202:t 1203-1208:4"},
    {15, 0, FROM_P720, "1501:t 1502-1508:8"},
    {16, 0, P730, "1-8:8"},
    {17, 1, P730, ""},
    {18, 2, P730, ""},
    {19, 3, P730, ""},
    {21, 4, P730, ""},
    {22, 11, P730, ""},
    {23, 8, P730, ""},
    {24, 12, P730, ""},
    {25, 15, P730, ""},
    {26, 16, P730, ""},
};

}  // namespace

const CollectorLayout& Tru64Layout() {
  static const CollectorLayout layout{VERSIONS, RECORDS};
  return layout;
}

}  // namespace ozmo::sample
