// Solaris collector: big-endian, or little-endian under the other file prefix.

#include "sample/layouts.h"

namespace ozmo::sample {
namespace {

enum : uint32_t { P300 = 1, P720 = 2, P730 = 4, FROM_P720 = P720 | P730, ALL = P300 | FROM_P720 };

constexpr VersionLayout VERSIONS[] = {{"P730", P730}, {"P720", P720}, {"P300", P300}};

constexpr RecordLayout RECORDS[] = {
    {1, 0, P730, "101-114:8"},
    {1, 0, P300 | P720, "101-109:8"},
    {2, 0, ALL, "201:t 202-203:8 204-205:4 206-211:8*1000000000 212-213:4"},
    {3, 0, ALL, "301-302:4 303-341:8"},
    {4, 0, FROM_P720,
     "421:t 415:t 401-406:4 409:4 423:4 422:4 410-412:8*1000000000 413-414:8 416-420:8 425-426:8"},
    {4, 0, P300, "401-409:4 410-412:8/100 413-414:8 415:t 416-420:8 421:t 422-423:4 424:t"},
    {5, 0, ALL, "501-502:t 503:8 505:4 504:t 506:t 507:4 508-511:t 512-515:4"},
    {6, 0, ALL, "601-602:4 603-604:t 605-613:8/100 614:4"},
    {7, 0, ALL, "701:4"},
    {8, 0, ALL, "801-920:4"},
    {12, 0, ALL, "1201-1202:t 1203-1209:8"},
    {13, 0, P730, "1:t 2-7:8"},
    {15, 0, FROM_P720, "1501:t 1502-1508:8"},
    {16, 0, P730, "1-8:8"},
    {17, 1, P730, ""},
    {18, 2, P730, ""},
    {19, 3, P730, ""},
    {21, 4, P730, "401-409:4 410-412:8*1000000000 413-414:4 415:t 416-420:4 421:t 422-423:4 424:t"},
    {22, 8, P730, ""},
    {23, 6, P730, ""},
    {24, 12, P730, ""},
    {25, 15, P730, ""},
    {26, 16, P730, ""},
    {29, 13, P730, ""},
};

}  // namespace

const CollectorLayout& SolarisLayout() {
  static const CollectorLayout layout{VERSIONS, RECORDS};
  return layout;
}

}  // namespace ozmo::sample
