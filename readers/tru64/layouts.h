// The record layouts of the Tru64 collector's versions.
#pragma once

#include "readers/shared_layouts.h"

namespace ozmo::tru64_layouts {

enum Version : uint32_t {
  V520 = 1,
  P300 = 2,
  P720 = 4,
  P730 = 8,
  UNTIL_P300 = V520 | P300,
  UNTIL_P720 = UNTIL_P300 | P720,
  FROM_P720 = P720 | P730,
  FROM_P300 = P300 | FROM_P720,
  ALL = UNTIL_P300 | FROM_P720,
};

inline constexpr FieldRun OVERALL[] = {Int4(101, 108)};
inline constexpr FieldRun DISK[] = {Text(201), Int8(202, 207)};
inline constexpr FieldRun MEMORY[] = {Int4(301, 302), Int8(303, 330), Int4(331, 332), Int8(333, 334)};
// Old collectors count processor time in hundredths of a second, whatever divisor their list gives.
inline constexpr FieldRun PROCESS_OLD[] = {Int4(401, 406), {407, 408, RunSize::INT8, 100},
                                           Int8(409, 410), Int8(412, 417),
                                           Text(411),      Text(418),
                                           Text(421),      Int4(419, 420)};
inline constexpr FieldRun PROCESS[] = {Text(411), Text(418),      Int8(407, 410), Int8(412, 415),
                                       Int8(417), Int4(401, 406), Int4(419, 420)};
inline constexpr FieldRun CONFIG_OLD[] = {Int4(501), Int4(503),      Text(502),     Text(504, 506),
                                          Int4(507), Text(508, 510), Int4(511, 513)};
inline constexpr FieldRun CONFIG[] = {Int4(501), Int4(503),      Text(502),      Text(504, 506),
                                      Int4(507), Text(508, 510), Int4(511, 513), Int4(515)};
inline constexpr FieldRun NAMES[] = {Text(601, 602)};
inline constexpr FieldRun ALIAS[] = {Text(701, 703)};
inline constexpr FieldRun CPU[] = {Int4(801, 803), Int8(804, 808), Int4(809)};
inline constexpr FieldRun TIME[] = {Int4(901)};
inline constexpr FieldRun COUNTERS[] = {Int4(1101, 1129)};
inline constexpr FieldRun FILE_SYSTEM[] = {Text(1201, 1202), Int4(1203, 1208)};

// A twin shares the definition lists of its base, so the list that arrived last serves both.
inline constexpr LayoutRow LAYOUTS[] = {
    {.type = 1, .versions = ALL, .fields = OVERALL},
    {.type = 2, .versions = ALL, .fields = DISK},
    {.type = 3, .versions = ALL, .fields = MEMORY},
    {.type = 4, .versions = UNTIL_P300, .fields = PROCESS_OLD},
    {.type = 4, .versions = FROM_P720, .fields = PROCESS},
    {.type = 5, .versions = UNTIL_P720, .fields = CONFIG_OLD},
    {.type = 5, .versions = P730, .fields = CONFIG},
    {.type = 6, .versions = ALL, .fields = NAMES},
    {.type = 7, .versions = ALL, .fields = ALIAS},
    {.type = 8, .versions = ALL, .fields = CPU},
    {.type = 9, .versions = ALL, .fields = TIME},
    {.type = 11, .versions = ALL, .fields = COUNTERS},
    {.type = 12, .versions = FROM_P300, .fields = FILE_SYSTEM},
    {.type = 15, .versions = FROM_P720, .fields = LAN},
    {.type = 16, .versions = P730, .fields = SUMMARY},
    {.type = 17, .listsOf = 1, .versions = P730, .fields = OVERALL},
    {.type = 18, .listsOf = 2, .versions = P730, .fields = DISK},
    {.type = 19, .listsOf = 3, .versions = P730, .fields = MEMORY},
    {.type = 21, .listsOf = 4, .versions = P730, .fields = PROCESS},
    {.type = 22, .listsOf = 11, .versions = P730, .fields = COUNTERS},
    {.type = 23, .listsOf = 8, .versions = P730, .fields = CPU},
    {.type = 24, .listsOf = 12, .versions = P730, .fields = FILE_SYSTEM},
    {.type = 25, .listsOf = 15, .versions = P730, .fields = LAN},
    {.type = 26, .listsOf = 16, .versions = P730, .fields = SUMMARY},
};

inline constexpr double DIVISOR_OF_LAYOUT = 1.0;  // its hundredths are all that makes seconds
inline constexpr double MICROSECONDS = 1e6;

template <Version TheVersion>
constexpr RecordTable TableOf(std::string_view name, double processTimeUnits) {
  RecordTable table = ozmo::TableOf<LAYOUTS, TheVersion>(name);
  table.processTimeUnits = processTimeUnits;
  return table;
}

inline constexpr RecordTable P730_TABLE = TableOf<P730>("P730", MICROSECONDS);
inline constexpr RecordTable P720_TABLE = TableOf<P720>("P720", MICROSECONDS);
inline constexpr RecordTable P300_TABLE = TableOf<P300>("P300", DIVISOR_OF_LAYOUT);
inline constexpr RecordTable V520_TABLE = TableOf<V520>("V520", DIVISOR_OF_LAYOUT);

inline constexpr VersionRule VERSIONS[] = {
    {.match = VersionMatch::CONTAINS, .text = "P730", .table = &P730_TABLE},
    {.match = VersionMatch::CONTAINS, .text = "P720", .table = &P720_TABLE},
    {.text = "P300", .table = &P300_TABLE},
    {.text = "V530", .table = &P300_TABLE},
    {.text = "V520", .table = &V520_TABLE},
    {.text = "V510", .table = &V520_TABLE},
    {.text = "V505", .table = &V520_TABLE},
};

// Whether system and release of the configuration are those that mark a host as OSF1 V5.
constexpr bool IsOsf1V5(std::string_view system, std::string_view release) {
  return system == "OSF1" && release.starts_with("V5.0");
}

}  // namespace ozmo::tru64_layouts
