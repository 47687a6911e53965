// The record layouts of the Linux collector's versions. Those of 64 differ from their narrow siblings in the
// width of time stamps and counters.
#pragma once

#include "readers/shared_layouts.h"

namespace ozmo::linux_layouts {

enum Version : uint32_t {
  P300 = 1,
  P300_64 = 2,
  P720 = 4,
  P720_64 = 8,
  P730 = 16,
  P730_64 = 32,
  ANY_P300 = P300 | P300_64,
  ANY_P720 = P720 | P720_64,
  ANY_P730 = P730 | P730_64,
  FROM_P720 = ANY_P720 | ANY_P730,
  ALL = ANY_P300 | FROM_P720,
};

inline constexpr FieldRun OVERALL_P300[] = {Counter(101, 104)};
inline constexpr FieldRun OVERALL_P720[] = {Int8(101, 112)};
inline constexpr FieldRun OVERALL[] = {Int8(101, 109)};
inline constexpr FieldRun DISK_P300[] = {Text(201), Counter(202, 205)};
inline constexpr FieldRun DISK[] = {Text(201), Int8(206, 216)};
inline constexpr FieldRun MEMORY[] = {Counter(301, 311)};
inline constexpr FieldRun PROCESS[] = {Int4(401, 406), Counter(407, 410), Text(412), Counter(414, 417),
                                       Int4(411),      Counter(419, 428), Text(413)};
inline constexpr FieldRun CONFIG_P300[] = {Int4(501), Int4(503),      Text(502),     Text(504, 506),
                                           Int4(507), Text(508, 510), Int4(511, 513)};
inline constexpr FieldRun CONFIG[] = {Int4(501), Int4(503),      Text(502),      Text(504, 506),
                                      Int4(507), Text(508, 510), Int4(511, 513), Int4(515)};
inline constexpr FieldRun PLAIN_RECORD[] = {Int4(701), Text(702, 703)};
inline constexpr FieldRun CPU_P300[] = {Int4(801), Counter(802, 806)};
inline constexpr FieldRun CPU_P720[] = {Int4(801), Int8(802, 812)};
inline constexpr FieldRun CPU[] = {Int4(801), Int8(802, 810)};
inline constexpr FieldRun TIME[] = {Counter(901)};
inline constexpr FieldRun NET_STATS[] = {Counter(1101, 1161)};
inline constexpr FieldRun FILE_SYSTEM[] = {Text(1401, 1402), Counter(1403, 1409)};

// Counters of twins are narrow in all versions.
inline constexpr FieldRun DISK_TWIN[] = {Text(201), Int4(202, 205)};
inline constexpr FieldRun MEMORY_TWIN[] = {Int4(301, 311)};
inline constexpr FieldRun PROCESS_TWIN[] = {Int4(401, 410), Text(412),      Int4(414, 417),
                                            Int4(411),      Int4(419, 428), Text(413)};
inline constexpr FieldRun NET_STATS_TWIN[] = {Int4(1101, 1161)};
inline constexpr FieldRun FILE_SYSTEM_TWIN[] = {Text(1401, 1402), Int4(1403, 1409)};

// Disks are in table order, whatever their list says; their twins go by the list. A twin shares the
// definition lists of its base, so the list that arrived last serves both.
inline constexpr LayoutRow LAYOUTS[] = {
    {.type = 1, .versions = ANY_P300, .fields = OVERALL_P300},
    {.type = 1, .versions = ANY_P720, .fields = OVERALL_P720},
    {.type = 1, .versions = ANY_P730, .fields = OVERALL},
    {.type = 2, .versions = ANY_P300, .positional = true, .fields = DISK_P300},
    {.type = 2, .versions = FROM_P720, .positional = true, .fields = DISK},
    {.type = 3, .versions = ALL, .fields = MEMORY},
    {.type = 4, .versions = ALL, .fields = PROCESS},
    {.type = 5, .versions = ANY_P300, .fields = CONFIG_P300},
    {.type = 5, .versions = FROM_P720, .fields = CONFIG},
    {.type = 7, .versions = ALL, .fields = PLAIN_RECORD},
    {.type = 8, .versions = ANY_P300, .fields = CPU_P300},
    {.type = 8, .versions = ANY_P720, .fields = CPU_P720},
    {.type = 8, .versions = ANY_P730, .fields = CPU},
    {.type = 9, .versions = ALL, .fields = TIME},
    {.type = 11, .versions = ALL, .fields = NET_STATS},
    {.type = 13, .versions = ANY_P730, .fields = LOAD_ITEM},
    {.type = 14, .versions = ALL, .fields = FILE_SYSTEM},
    {.type = 15, .versions = FROM_P720, .fields = LAN},
    {.type = 16, .versions = ANY_P730, .fields = SUMMARY},
    {.type = 17, .listsOf = 1, .versions = ANY_P730, .fields = OVERALL},
    {.type = 18, .listsOf = 2, .versions = ANY_P730, .fields = DISK_TWIN},
    {.type = 19, .listsOf = 3, .versions = ANY_P730, .fields = MEMORY_TWIN},
    {.type = 21, .listsOf = 4, .versions = ANY_P730, .fields = PROCESS_TWIN},
    {.type = 22, .listsOf = 11, .versions = ANY_P730, .fields = NET_STATS_TWIN},
    {.type = 23, .listsOf = 8, .versions = ANY_P730, .fields = CPU},
    {.type = 24, .listsOf = 14, .versions = ANY_P730, .fields = FILE_SYSTEM_TWIN},
    {.type = 25, .listsOf = 15, .versions = ANY_P730, .fields = LAN},
    {.type = 26, .listsOf = 16, .versions = ANY_P730, .fields = SUMMARY},
    {.type = 29, .listsOf = 13, .versions = ANY_P730, .fields = LOAD_ITEM},
};

inline constexpr RecordTable P730_TABLE = TableOf<LAYOUTS, P730, NARROW_COUNTERS>("P730");
inline constexpr RecordTable P730_64_TABLE = TableOf<LAYOUTS, P730_64, WIDE_COUNTERS>("P730_64");
inline constexpr RecordTable P720_TABLE = TableOf<LAYOUTS, P720, NARROW_COUNTERS>("P720");
inline constexpr RecordTable P720_64_TABLE = TableOf<LAYOUTS, P720_64, WIDE_COUNTERS>("P720_64");
inline constexpr RecordTable P300_TABLE = TableOf<LAYOUTS, P300, NARROW_COUNTERS>("P300");
inline constexpr RecordTable P300_64_TABLE = TableOf<LAYOUTS, P300_64, WIDE_COUNTERS>("P300_64");

inline constexpr VersionRule VERSIONS[] = {
    {.text = "P730", .table = &P730_TABLE},
    {.match = VersionMatch::CONTAINS, .text = "P730_64", .table = &P730_64_TABLE},
    {.text = "P720", .table = &P720_TABLE},
    {.match = VersionMatch::CONTAINS, .text = "P720_64", .table = &P720_64_TABLE},
    {.text = "P300", .table = &P300_TABLE},
    {.match = VersionMatch::CONTAINS, .text = "540", .table = &P300_TABLE},
    {.match = VersionMatch::CONTAINS, .text = "P300_64", .table = &P300_64_TABLE},
};

// Whether a file's processor figures are of the newer form: its tag says so, whatever its version. A file
// without a tag record has older ones.
constexpr bool HasNewerCpuFigures(std::string_view tag) {
  return tag.find("P720") != tag.npos || tag.find("P730") != tag.npos;
}

}  // namespace ozmo::linux_layouts
