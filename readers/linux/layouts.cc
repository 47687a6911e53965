#include "readers/linux/layouts.h"

#include "readers/field_spec.h"

namespace ozmo {
namespace {

constexpr FieldSize NARROW = FieldSize::INT4;
constexpr FieldSize WIDE = FieldSize::INT8;

// Layouts by the width of the version's counters.
template <FieldSize Counter>
constexpr auto OVERALL_P300 = Fields<101, 104>(Counter);
constexpr auto OVERALL_P720 = Int8Fields<101, 112>();
constexpr auto OVERALL = Int8Fields<101, 109>();

template <FieldSize Counter>
constexpr auto DISK_P300 = Join(TextFields<201>(), Fields<202, 205>(Counter));
constexpr auto DISK = Join(TextFields<201>(), Int8Fields<206, 216>());

template <FieldSize Counter>
constexpr auto MEMORY = Fields<301, 311>(Counter);

template <FieldSize Counter>
constexpr auto PROCESS = Join(Int4Fields<401, 406>(), Fields<407, 410>(Counter), TextFields<412>(),
                              Fields<414, 417>(Counter), Int4Fields<411>(), Fields<419, 428>(Counter),
                              TextFields<413>());

constexpr auto CONFIG_P300 =
    Join(Int4Fields<501>(), Int4Fields<503>(), TextFields<502>(), TextFields<504, 506>(), Int4Fields<507>(),
         TextFields<508, 510>(), Int4Fields<511, 513>());
constexpr auto CONFIG = Join(CONFIG_P300, Int4Fields<515>());

constexpr auto PLAIN_RECORD = Join(Int4Fields<701>(), TextFields<702, 703>());

template <FieldSize Counter>
constexpr auto CPU_P300 = Join(Int4Fields<801>(), Fields<802, 806>(Counter));
constexpr auto CPU_P720 = Join(Int4Fields<801>(), Int8Fields<802, 812>());
constexpr auto CPU = Join(Int4Fields<801>(), Int8Fields<802, 810>());

template <FieldSize Counter>
constexpr auto TIME = Fields<901, 901>(Counter);

template <FieldSize Counter>
constexpr auto NET_STATS = Fields<1101, 1161>(Counter);

template <FieldSize Counter>
constexpr auto FILE_SYSTEM = Join(TextFields<1401, 1402>(), Fields<1403, 1409>(Counter));

constexpr auto LOAD_ITEM = Join(TextFields<1>(), Int8Fields<2, 7>());
constexpr auto LAN = Join(TextFields<1501>(), Int8Fields<1502, 1508>());
constexpr auto SUMMARY = Int8Fields<1, 8>();

// Disks stand in table order, whatever their list says; their twins go by the list. A twin shares the
// definition lists of its base, so the list that arrived last serves both.
template <FieldSize Counter>
constexpr RecordLayout P300_ROWS[] = {
    {1, 1, OVERALL_P300<Counter>}, {2, 2, DISK_P300<Counter>, true},
    {3, 3, MEMORY<Counter>},       {4, 4, PROCESS<Counter>},
    {5, 5, CONFIG_P300},           {7, 7, PLAIN_RECORD},
    {8, 8, CPU_P300<Counter>},     {9, 9, TIME<Counter>},
    {11, 11, NET_STATS<Counter>},  {14, 14, FILE_SYSTEM<Counter>},
};

template <FieldSize Counter>
constexpr RecordLayout P720_ROWS[] = {
    {1, 1, OVERALL_P720},
    {2, 2, DISK, true},
    {3, 3, MEMORY<Counter>},
    {4, 4, PROCESS<Counter>},
    {5, 5, CONFIG},
    {7, 7, PLAIN_RECORD},
    {8, 8, CPU_P720},
    {9, 9, TIME<Counter>},
    {11, 11, NET_STATS<Counter>},
    {14, 14, FILE_SYSTEM<Counter>},
    {15, 15, LAN},
};

template <FieldSize Counter>
constexpr RecordLayout P730_ROWS[] = {
    {1, 1, OVERALL},
    {2, 2, DISK, true},
    {3, 3, MEMORY<Counter>},
    {4, 4, PROCESS<Counter>},
    {5, 5, CONFIG},
    {7, 7, PLAIN_RECORD},
    {8, 8, CPU},
    {9, 9, TIME<Counter>},
    {11, 11, NET_STATS<Counter>},
    {13, 13, LOAD_ITEM},
    {14, 14, FILE_SYSTEM<Counter>},
    {15, 15, LAN},
    {16, 16, SUMMARY},
    {17, 1, OVERALL},
    {18, 2, DISK_P300<NARROW>},
    {19, 3, MEMORY<NARROW>},
    {21, 4, PROCESS<NARROW>},
    {22, 11, NET_STATS<NARROW>},
    {23, 8, CPU},
    {24, 14, FILE_SYSTEM<NARROW>},
    {25, 15, LAN},
    {26, 16, SUMMARY},
    {29, 13, LOAD_ITEM},
};

}  // namespace

const RecordTable LINUX_P730{"P730", P730_ROWS<NARROW>};
const RecordTable LINUX_P730_64{"P730_64", P730_ROWS<WIDE>};
const RecordTable LINUX_P720{"P720", P720_ROWS<NARROW>};
const RecordTable LINUX_P720_64{"P720_64", P720_ROWS<WIDE>};
const RecordTable LINUX_P300{"P300", P300_ROWS<NARROW>};
const RecordTable LINUX_P300_64{"P300_64", P300_ROWS<WIDE>};

}  // namespace ozmo
