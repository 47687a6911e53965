// The record layouts of the AIX collector's versions. Those of 64 differ from their narrow siblings in the
// width of time stamps and counters.
#pragma once

#include "readers/shared_layouts.h"

namespace ozmo::aix_layouts {

enum Version : uint32_t {
  P300 = 1,
  P300_64 = 2,
  P720 = 4,
  P720_64 = 8,
  P730 = 16,
  P730_64 = 32,
  P910 = 64,
  P910_64 = 128,
  FROM_P910 = P910 | P910_64,
  FROM_P730 = P730 | P730_64 | FROM_P910,
  FROM_P720 = P720 | P720_64 | FROM_P730,
  UNTIL_P720 = P300 | P300_64 | P720 | P720_64,
  ALL = UNTIL_P720 | FROM_P730,
};

inline constexpr FieldRun OVERALL_P300[] = {Counter(101, 109)};
inline constexpr FieldRun OVERALL[] = {Int8(101, 117)};
inline constexpr FieldRun DISK[] = {Text(201), Counter(202, 205), Int8(206, 218)};
inline constexpr FieldRun MEMORY[] = {Int4(301, 310), Counter(311, 316)};
inline constexpr FieldRun PROCESS[] = {Int4(401, 406), Counter(407, 416), Int4(417, 418), Text(419, 420)};
inline constexpr FieldRun CONFIG_P300[] = {Counter(503),   Int4(506), Text(504, 505), Text(507),
                                           Text(501, 502), Int4(508), Text(509, 511), Int4(512, 514)};
inline constexpr FieldRun CONFIG[] = {Counter(503),   Int4(506), Text(504, 505), Text(507),
                                      Text(501, 502), Int4(508), Text(509, 511), Int4(512, 515)};
inline constexpr FieldRun TIME[] = {Counter(601)};
inline constexpr FieldRun NET_STATS[] = {Counter(701, 797)};
inline constexpr FieldRun CPU_P300[] = {Int4(801), Counter(802, 810)};
inline constexpr FieldRun CPU[] = {Int4(801), Int8(802, 813)};
inline constexpr FieldRun FILE_SYSTEM[] = {Text(901, 902), Int4(903, 909)};
inline constexpr FieldRun MORE_MEMORY[] = {Int8(1, 26)};
inline constexpr FieldRun PARTITION[] = {Text(1), Int4(2, 7), Int8(8, 50)};

// Disks are in table order, whatever their list says; their twins go by the list. A twin shares the
// definition lists of its base, so the list that arrived last serves both.
inline constexpr LayoutRow LAYOUTS[] = {
    {.type = 1, .versions = UNTIL_P720, .fields = OVERALL_P300},
    {.type = 1, .versions = FROM_P730, .fields = OVERALL},
    {.type = 2, .versions = ALL, .positional = true, .fields = DISK},
    {.type = 3, .versions = ALL, .fields = MEMORY},
    {.type = 4, .versions = ALL, .fields = PROCESS},
    {.type = 5, .versions = UNTIL_P720, .fields = CONFIG_P300},
    {.type = 5, .versions = FROM_P730, .fields = CONFIG},
    {.type = 6, .versions = ALL, .fields = TIME},
    {.type = 7, .versions = ALL, .fields = NET_STATS},
    {.type = 8, .versions = UNTIL_P720, .fields = CPU_P300},
    {.type = 8, .versions = FROM_P730, .fields = CPU},
    {.type = 9, .versions = ALL, .fields = FILE_SYSTEM},
    {.type = 12, .versions = FROM_P910, .fields = MORE_MEMORY},
    {.type = 13, .versions = FROM_P730, .fields = LOAD_ITEM},
    {.type = 14, .versions = FROM_P730, .fields = PARTITION},
    {.type = 15, .versions = FROM_P720, .fields = LAN},
    {.type = 16, .versions = FROM_P730, .fields = SUMMARY},
    {.type = 17, .listsOf = 1, .versions = FROM_P730, .fields = OVERALL},
    {.type = 18, .listsOf = 2, .versions = FROM_P730, .fields = DISK},
    {.type = 19, .listsOf = 3, .versions = FROM_P730, .fields = MEMORY},
    {.type = 21, .listsOf = 4, .versions = FROM_P730, .fields = PROCESS},
    {.type = 22, .listsOf = 7, .versions = FROM_P730, .fields = NET_STATS},
    {.type = 23, .listsOf = 8, .versions = FROM_P730, .fields = CPU},
    {.type = 24, .listsOf = 9, .versions = FROM_P730, .fields = FILE_SYSTEM},
    {.type = 25, .listsOf = 15, .versions = FROM_P730, .fields = LAN},
    {.type = 26, .listsOf = 16, .versions = FROM_P730, .fields = SUMMARY},
    {.type = 29, .listsOf = 13, .versions = FROM_P730, .fields = LOAD_ITEM},
    {.type = 31, .listsOf = 14, .versions = FROM_P730, .fields = PARTITION},
};

inline constexpr RecordTable P910_TABLE = TableOf<LAYOUTS, P910, NARROW_COUNTERS>("P910");
inline constexpr RecordTable P910_64_TABLE = TableOf<LAYOUTS, P910_64, WIDE_COUNTERS>("P910_64");
inline constexpr RecordTable P730_TABLE = TableOf<LAYOUTS, P730, NARROW_COUNTERS>("P730");
inline constexpr RecordTable P730_64_TABLE = TableOf<LAYOUTS, P730_64, WIDE_COUNTERS>("P730_64");
inline constexpr RecordTable P720_TABLE = TableOf<LAYOUTS, P720, NARROW_COUNTERS>("P720");
inline constexpr RecordTable P720_64_TABLE = TableOf<LAYOUTS, P720_64, WIDE_COUNTERS>("P720_64");
inline constexpr RecordTable P300_TABLE = TableOf<LAYOUTS, P300, NARROW_COUNTERS>("P300");
inline constexpr RecordTable P300_64_TABLE = TableOf<LAYOUTS, P300_64, WIDE_COUNTERS>("P300_64");

inline constexpr VersionRule VERSIONS[] = {
    {.text = "P910_64", .table = &P910_64_TABLE}, {.text = "P910", .table = &P910_TABLE},
    {.text = "P730_64", .table = &P730_64_TABLE}, {.text = "P730", .table = &P730_TABLE},
    {.text = "P720_64", .table = &P720_64_TABLE}, {.text = "P720", .table = &P720_TABLE},
    {.text = "P300_64", .table = &P300_64_TABLE}, {.text = "P300", .table = &P300_TABLE},
    {.text = "540", .table = &P300_TABLE},
};

}  // namespace ozmo::aix_layouts
