// The record layouts of the Solaris collector's versions.
#pragma once

#include "readers/shared_layouts.h"

namespace ozmo::solaris_layouts {

enum Version : uint32_t {
  P300 = 1,
  P720 = 2,
  P730 = 4,
  UNTIL_P720 = P300 | P720,
  FROM_P720 = P720 | P730,
  ALL = P300 | P720 | P730,
};

inline constexpr FieldRun OVERALL_OLD[] = {Int8(101, 109)};
inline constexpr FieldRun OVERALL[] = {Int8(101, 114)};
inline constexpr FieldRun DISK[] = {Text(201), Int8(202, 203), Int4(204, 205), Int8(206, 211),
                                    Int4(212, 213)};
inline constexpr FieldRun MEMORY[] = {Int4(301, 302), Int8(303, 341)};
inline constexpr FieldRun PROCESS_OLD[] = {Int4(401, 409), Int8(410, 414), Text(415), Int8(416, 420),
                                           Text(421),      Int4(422, 423), Text(424)};
inline constexpr FieldRun PROCESS[] = {Text(421), Text(415),      Int4(401, 406), Int4(409),     Int4(423),
                                       Int4(422), Int8(410, 414), Int8(416, 420), Int8(425, 426)};
inline constexpr FieldRun PROCESS_TWIN[] = {Int4(401, 409), Int8(410, 412), Int4(413, 414), Text(415),
                                            Int4(416, 420), Text(421),      Int4(422, 423), Text(424)};
inline constexpr FieldRun CONFIG[] = {Text(501, 502), Int8(503), Int4(505),      Text(504),
                                      Text(506),      Int4(507), Text(508, 511), Int4(512, 515)};
inline constexpr FieldRun CPU[] = {Int4(601, 602), Text(603, 604), Int8(605, 613), Int4(614)};
inline constexpr FieldRun TIME[] = {Int4(701)};
inline constexpr FieldRun KERNEL[] = {Int4(801, 920)};
inline constexpr FieldRun FILE_SYSTEM[] = {Text(1201, 1202), Int8(1203, 1209)};

// Each type has definition lists of its own, twins too. Disks are in table order, whatever their list says.
inline constexpr LayoutRow LAYOUTS[] = {
    {.type = 1, .versions = UNTIL_P720, .fields = OVERALL_OLD},
    {.type = 1, .versions = P730, .fields = OVERALL},
    {.type = 2, .versions = ALL, .positional = true, .fields = DISK},
    {.type = 3, .versions = ALL, .fields = MEMORY},
    {.type = 4, .versions = P300, .fields = PROCESS_OLD},
    {.type = 4, .versions = FROM_P720, .fields = PROCESS},
    {.type = 5, .versions = ALL, .fields = CONFIG},
    {.type = 6, .versions = ALL, .fields = CPU},
    {.type = 7, .versions = ALL, .fields = TIME},
    {.type = 8, .versions = ALL, .fields = KERNEL},
    {.type = 12, .versions = ALL, .fields = FILE_SYSTEM},
    {.type = 13, .versions = P730, .fields = LOAD_ITEM},
    {.type = 15, .versions = FROM_P720, .fields = LAN},
    {.type = 16, .versions = P730, .fields = SUMMARY},
    {.type = 17, .versions = P730, .fields = OVERALL},
    {.type = 18, .versions = P730, .fields = DISK},
    {.type = 19, .versions = P730, .fields = MEMORY},
    {.type = 21, .versions = P730, .fields = PROCESS_TWIN},
    {.type = 22, .versions = P730, .fields = KERNEL},
    {.type = 23, .versions = P730, .fields = CPU},
    {.type = 24, .versions = P730, .fields = FILE_SYSTEM},
    {.type = 25, .versions = P730, .fields = LAN},
    {.type = 26, .versions = P730, .fields = SUMMARY},
    {.type = 29, .versions = P730, .fields = LOAD_ITEM},
};

inline constexpr double SECONDS = 1.0;
inline constexpr double NANOSECONDS = 1e9;

template <Version TheVersion>
constexpr RecordTable TableOf(std::string_view name, double processTimeUnits) {
  RecordTable table = ozmo::TableOf<LAYOUTS, TheVersion>(name);
  table.processTimeUnits = processTimeUnits;
  return table;
}

inline constexpr RecordTable P730_TABLE = TableOf<P730>("P730", NANOSECONDS);
inline constexpr RecordTable P720_TABLE = TableOf<P720>("P720", NANOSECONDS);
inline constexpr RecordTable P300_TABLE = TableOf<P300>("P300", SECONDS);

inline constexpr VersionRule VERSIONS[] = {
    {.match = VersionMatch::CONTAINS, .text = "P730", .table = &P730_TABLE},
    {.match = VersionMatch::CONTAINS, .text = "P720", .table = &P720_TABLE},
    {.match = VersionMatch::CONTAINS, .text = "P300", .table = &P300_TABLE},
};

}  // namespace ozmo::solaris_layouts
