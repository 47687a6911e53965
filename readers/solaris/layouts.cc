#include "readers/solaris/layouts.h"

#include "readers/field_spec.h"

namespace ozmo {
namespace {

constexpr auto OVERALL = Int8Fields<101, 114>();
constexpr auto OVERALL_OLD = Int8Fields<101, 109>();
constexpr auto DISK = Join(TextFields<201>(), Int8Fields<202, 203>(), Int4Fields<204, 205>(),
                           Int8Fields<206, 211>(), Int4Fields<212, 213>());
constexpr auto MEMORY = Join(Int4Fields<301, 302>(), Int8Fields<303, 341>());
constexpr auto PROCESS =
    Join(TextFields<421>(), TextFields<415>(), Int4Fields<401, 406>(), Int4Fields<409>(), Int4Fields<423>(),
         Int4Fields<422>(), Int8Fields<410, 414>(), Int8Fields<416, 420>(), Int8Fields<425, 426>());
constexpr auto PROCESS_OLD =
    Join(Int4Fields<401, 409>(), Int8Fields<410, 414>(), TextFields<415>(), Int8Fields<416, 420>(),
         TextFields<421>(), Int4Fields<422, 423>(), TextFields<424>());
constexpr auto PROCESS_TWIN =
    Join(Int4Fields<401, 409>(), Int8Fields<410, 412>(), Int4Fields<413, 414>(), TextFields<415>(),
         Int4Fields<416, 420>(), TextFields<421>(), Int4Fields<422, 423>(), TextFields<424>());
constexpr auto CONFIG =
    Join(TextFields<501, 502>(), Int8Fields<503>(), Int4Fields<505>(), TextFields<504>(), TextFields<506>(),
         Int4Fields<507>(), TextFields<508, 511>(), Int4Fields<512, 515>());
constexpr auto PROCESSOR =
    Join(Int4Fields<601, 602>(), TextFields<603, 604>(), Int8Fields<605, 613>(), Int4Fields<614>());
constexpr auto TIME = Int4Fields<701>();
constexpr auto KERNEL = Int4Fields<801, 920>();
constexpr auto FILE_SYSTEM = Join(TextFields<1201, 1202>(), Int8Fields<1203, 1209>());
constexpr auto LOAD_ITEM = Join(TextFields<1>(), Int8Fields<2, 7>());
constexpr auto LAN = Join(TextFields<1501>(), Int8Fields<1502, 1508>());
constexpr auto SUMMARY = Int8Fields<1, 8>();

// Each type has definition lists of its own, twins too. Disks stand in table order, whatever their list says.
constexpr RecordLayout P730_ROWS[] = {
    {1, 1, OVERALL},       {2, 2, DISK, true},  {3, 3, MEMORY},        {4, 4, PROCESS},
    {5, 5, CONFIG},        {6, 6, PROCESSOR},   {7, 7, TIME},          {8, 8, KERNEL},
    {12, 12, FILE_SYSTEM}, {13, 13, LOAD_ITEM}, {15, 15, LAN},         {16, 16, SUMMARY},
    {17, 17, OVERALL},     {18, 18, DISK},      {19, 19, MEMORY},      {21, 21, PROCESS_TWIN},
    {22, 22, KERNEL},      {23, 23, PROCESSOR}, {24, 24, FILE_SYSTEM}, {25, 25, LAN},
    {26, 26, SUMMARY},     {29, 29, LOAD_ITEM},
};
constexpr RecordLayout P720_ROWS[] = {
    {1, 1, OVERALL_OLD}, {2, 2, DISK, true}, {3, 3, MEMORY}, {4, 4, PROCESS},       {5, 5, CONFIG},
    {6, 6, PROCESSOR},   {7, 7, TIME},       {8, 8, KERNEL}, {12, 12, FILE_SYSTEM}, {15, 15, LAN},
};
constexpr RecordLayout P300_ROWS[] = {
    {1, 1, OVERALL_OLD}, {2, 2, DISK, true}, {3, 3, MEMORY}, {4, 4, PROCESS_OLD},   {5, 5, CONFIG},
    {6, 6, PROCESSOR},   {7, 7, TIME},       {8, 8, KERNEL}, {12, 12, FILE_SYSTEM},
};

}  // namespace

const RecordTable SOLARIS_P730{"P730", P730_ROWS};
const RecordTable SOLARIS_P720{"P720", P720_ROWS};
const RecordTable SOLARIS_P300{"P300", P300_ROWS};

}  // namespace ozmo
