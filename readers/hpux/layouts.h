// The record layouts of the HP-UX collector's versions. Those of 64 differ from their narrow siblings in the
// width of time stamps and counters.
#pragma once

#include "readers/shared_layouts.h"

namespace ozmo::hpux_layouts {

enum Version : uint32_t {
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
  ALL = V520 | FROM_V530,
};

inline constexpr FieldRun OVERALL[] = {Int4(101, 116)};
inline constexpr FieldRun DISK[] = {Text(201), Counter(202, 204), Int8(205, 206), Counter(207, 208)};
inline constexpr FieldRun MEMORY[] = {Int8(301), Int4(302), Counter(303, 323), Int4(324, 325),
                                      Counter(326, 328)};
inline constexpr FieldRun PROCESS[] = {Int4(401, 405), Counter(406, 414), Int4(415), Counter(416),
                                       Text(417, 418)};
inline constexpr FieldRun CONFIG[] = {Int8(503),      Int4(506), Text(504, 505), Text(507),
                                      Text(501, 502), Int4(508), Text(509, 511), Int4(512, 515)};
inline constexpr FieldRun TIME[] = {Counter(601)};
inline constexpr FieldRun NET_STATS[] = {Int4(701, 765)};
inline constexpr FieldRun CPU[] = {Int4(801, 812)};
inline constexpr FieldRun FILE_SYSTEM[] = {Text(901, 902), Int4(903, 909)};
inline constexpr FieldRun NET_STATS_2[] = {Int4(1001, 1015), Int4(1017), Int4(1016), Int4(1018, 1100)};

// A twin shares the definition lists of its base, so the list that arrived last serves both.
inline constexpr LayoutRow LAYOUTS[] = {
    {.type = 1, .versions = ALL, .fields = OVERALL},
    {.type = 2, .versions = ALL, .fields = DISK},
    {.type = 3, .versions = ALL, .fields = MEMORY},
    {.type = 4, .versions = ALL, .fields = PROCESS},
    {.type = 5, .versions = ALL, .fields = CONFIG},
    {.type = 6, .versions = ALL, .fields = TIME},
    {.type = 7, .versions = ALL, .fields = NET_STATS},
    {.type = 8, .versions = ALL, .fields = CPU},
    {.type = 9, .versions = FROM_V530, .fields = FILE_SYSTEM},
    {.type = 11, .versions = FROM_P300, .fields = NET_STATS_2},
    {.type = 13, .versions = ANY_P730, .fields = LOAD_ITEM},
    {.type = 15, .versions = FROM_P720, .fields = LAN},
    {.type = 16, .versions = ANY_P730, .fields = SUMMARY},
    {.type = 17, .listsOf = 1, .versions = ANY_P730, .fields = OVERALL},
    {.type = 18, .listsOf = 2, .versions = ANY_P730, .fields = DISK},
    {.type = 19, .listsOf = 3, .versions = ANY_P730, .fields = MEMORY},
    {.type = 21, .listsOf = 4, .versions = ANY_P730, .fields = PROCESS},
    {.type = 22, .listsOf = 11, .versions = ANY_P730, .fields = NET_STATS_2},
    {.type = 23, .listsOf = 8, .versions = ANY_P730, .fields = CPU},
    {.type = 24, .listsOf = 9, .versions = ANY_P730, .fields = FILE_SYSTEM},
    {.type = 25, .listsOf = 15, .versions = ANY_P730, .fields = LAN},
    {.type = 26, .listsOf = 16, .versions = ANY_P730, .fields = SUMMARY},
    {.type = 29, .listsOf = 13, .versions = ANY_P730, .fields = LOAD_ITEM},
};

enum class DiskTimes : uint8_t { UNTRUSTED, TRUSTED };

template <Version TheVersion, FieldSize Counters>
constexpr RecordTable TableOf(std::string_view name, DiskTimes diskTimes) {
  RecordTable table = ozmo::TableOf<LAYOUTS, TheVersion, Counters>(name);
  table.diskTimesAreTrusted = diskTimes == DiskTimes::TRUSTED;
  return table;
}

using enum DiskTimes;

inline constexpr RecordTable P730_TABLE = TableOf<P730, NARROW_COUNTERS>("P730", TRUSTED);
inline constexpr RecordTable P730_64_TABLE = TableOf<P730_64, WIDE_COUNTERS>("P730_64", TRUSTED);
inline constexpr RecordTable P720_TABLE = TableOf<P720, NARROW_COUNTERS>("P720", TRUSTED);
inline constexpr RecordTable P720_64_TABLE = TableOf<P720_64, WIDE_COUNTERS>("P720_64", TRUSTED);
inline constexpr RecordTable P300_TABLE = TableOf<P300, NARROW_COUNTERS>("P300", UNTRUSTED);
inline constexpr RecordTable P300_64_TABLE = TableOf<P300_64, WIDE_COUNTERS>("P300_64", UNTRUSTED);
inline constexpr RecordTable V530_TABLE = TableOf<V530, NARROW_COUNTERS>("V530", UNTRUSTED);
inline constexpr RecordTable V520_TABLE = TableOf<V520, NARROW_COUNTERS>("V520", UNTRUSTED);

inline constexpr VersionRule VERSIONS[] = {
    {.text = "P730_64", .table = &P730_64_TABLE},
    {.text = "P730", .table = &P730_TABLE},
    {.text = "P720_64", .table = &P720_64_TABLE},
    {.text = "P720", .table = &P720_TABLE},
    {.text = "P300_64", .table = &P300_64_TABLE},
    {.text = "P300", .table = &P300_TABLE},
    {.match = VersionMatch::CONTAINS, .text = "540", .table = &P300_TABLE, .leavesCounterWidth = true},
    {.text = "V530", .table = &V530_TABLE, .leavesCounterWidth = true},
    {.text = "V525", .table = &V520_TABLE, .leavesCounterWidth = true},
    {.text = "V520", .table = &V520_TABLE, .leavesCounterWidth = true},
    {.text = "V510", .table = &V520_TABLE, .leavesCounterWidth = true},
};

// Whether files bring processor time at lowered priority, in field 105. The text is that of the walk's
// configuration record and not the one that has chosen the table.
constexpr bool HasNiceTime(std::string_view version) {
  return version == "V525" || version == "V530" || version.find("540") != version.npos ||
         version.find("P300") != version.npos;
}

}  // namespace ozmo::hpux_layouts
