#include "readers/tru64/layouts.h"

#include "readers/field_spec.h"

namespace ozmo {
namespace {

constexpr auto OVERALL = Int4Fields<101, 108>();
constexpr auto DISK = Join(TextFields<201>(), Int8Fields<202, 207>());
constexpr auto MEMORY =
    Join(Int4Fields<301, 302>(), Int8Fields<303, 330>(), Int4Fields<331, 332>(), Int8Fields<333, 334>());
constexpr auto PROCESS =
    Join(TextFields<411>(), TextFields<418>(), Int8Fields<407, 410>(), Int8Fields<412, 415>(),
         Int8Fields<417>(), Int4Fields<401, 406>(), Int4Fields<419, 420>());
// Old collectors count processor time in hundredths of a second, whatever divisor their list tells.
constexpr std::array CPU_TIMES_OLD = {
    FieldSpec{407, FieldSize::INT8, 100},
    FieldSpec{408, FieldSize::INT8, 100},
};
constexpr auto PROCESS_OLD =
    Join(Int4Fields<401, 406>(), CPU_TIMES_OLD, Int8Fields<409, 410>(), Int8Fields<412, 417>(),
         TextFields<411>(), TextFields<418>(), TextFields<421>(), Int4Fields<419, 420>());
constexpr auto CONFIG_OLD =
    Join(Int4Fields<501>(), Int4Fields<503>(), TextFields<502>(), TextFields<504, 506>(), Int4Fields<507>(),
         TextFields<508, 510>(), Int4Fields<511, 513>());
constexpr auto CONFIG = Join(CONFIG_OLD, Int4Fields<515>());
constexpr auto NAMES = TextFields<601, 602>();
constexpr auto ALIAS = TextFields<701, 703>();
constexpr auto CPU = Join(Int4Fields<801, 803>(), Int8Fields<804, 808>(), Int4Fields<809>());
constexpr auto TIME = Int4Fields<901>();
constexpr auto COUNTERS = Int4Fields<1101, 1129>();
constexpr auto FILE_SYSTEM = Join(TextFields<1201, 1202>(), Int4Fields<1203, 1208>());
constexpr auto LAN = Join(TextFields<1501>(), Int8Fields<1502, 1508>());
constexpr auto SUMMARY = Int8Fields<1, 8>();

// A twin shares the definition lists of its base, so the list that arrived last serves both.
constexpr RecordLayout P730_ROWS[] = {
    {1, 1, OVERALL},       {2, 2, DISK},      {3, 3, MEMORY},     {4, 4, PROCESS},  {5, 5, CONFIG},
    {6, 6, NAMES},         {7, 7, ALIAS},     {8, 8, CPU},        {9, 9, TIME},     {11, 11, COUNTERS},
    {12, 12, FILE_SYSTEM}, {15, 15, LAN},     {16, 16, SUMMARY},  {17, 1, OVERALL}, {18, 2, DISK},
    {19, 3, MEMORY},       {21, 4, PROCESS},  {22, 11, COUNTERS}, {23, 8, CPU},     {24, 12, FILE_SYSTEM},
    {25, 15, LAN},         {26, 16, SUMMARY},
};
constexpr RecordLayout P720_ROWS[] = {
    {1, 1, OVERALL}, {2, 2, DISK}, {3, 3, MEMORY}, {4, 4, PROCESS},    {5, 5, CONFIG_OLD},    {6, 6, NAMES},
    {7, 7, ALIAS},   {8, 8, CPU},  {9, 9, TIME},   {11, 11, COUNTERS}, {12, 12, FILE_SYSTEM}, {15, 15, LAN},
};
constexpr RecordLayout P300_ROWS[] = {
    {1, 1, OVERALL}, {2, 2, DISK}, {3, 3, MEMORY}, {4, 4, PROCESS_OLD}, {5, 5, CONFIG_OLD},    {6, 6, NAMES},
    {7, 7, ALIAS},   {8, 8, CPU},  {9, 9, TIME},   {11, 11, COUNTERS},  {12, 12, FILE_SYSTEM},
};
constexpr RecordLayout V520_ROWS[] = {
    {1, 1, OVERALL}, {2, 2, DISK},  {3, 3, MEMORY}, {4, 4, PROCESS_OLD}, {5, 5, CONFIG_OLD},
    {6, 6, NAMES},   {7, 7, ALIAS}, {8, 8, CPU},    {9, 9, TIME},        {11, 11, COUNTERS},
};

}  // namespace

const RecordTable TRU64_P730{"P730", P730_ROWS};
const RecordTable TRU64_P720{"P720", P720_ROWS};
const RecordTable TRU64_P300{"P300", P300_ROWS};
const RecordTable TRU64_V520{"V520", V520_ROWS};

}  // namespace ozmo
