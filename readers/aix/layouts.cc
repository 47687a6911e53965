#include "readers/aix/layouts.h"

#include "readers/field_spec.h"

namespace ozmo {
namespace {

constexpr FieldSize NARROW = FieldSize::INT4;
constexpr FieldSize WIDE = FieldSize::INT8;

// Layouts by the width of the version's counters.
template <FieldSize Counter>
constexpr auto OVERALL_P300 = Fields<101, 109>(Counter);
constexpr auto OVERALL = Int8Fields<101, 117>();

template <FieldSize Counter>
constexpr auto DISK = Join(TextFields<201>(), Fields<202, 205>(Counter), Int8Fields<206, 218>());

template <FieldSize Counter>
constexpr auto MEMORY = Join(Int4Fields<301, 310>(), Fields<311, 316>(Counter));

template <FieldSize Counter>
constexpr auto PROCESS = Join(Int4Fields<401, 406>(), Fields<407, 416>(Counter), Int4Fields<417, 418>(),
                              TextFields<419, 420>());

template <FieldSize Counter>
constexpr auto CONFIG_P300 = Join(Fields<503, 503>(Counter), Int4Fields<506>(), TextFields<504, 505>(),
                                  TextFields<507>(), TextFields<501, 502>(), Int4Fields<508>(),
                                  TextFields<509, 511>(), Int4Fields<512, 514>());
template <FieldSize Counter>
constexpr auto CONFIG = Join(CONFIG_P300<Counter>, Int4Fields<515>());

template <FieldSize Counter>
constexpr auto TIME = Fields<601, 601>(Counter);

template <FieldSize Counter>
constexpr auto NET_STATS = Fields<701, 797>(Counter);

template <FieldSize Counter>
constexpr auto CPU_P300 = Join(Int4Fields<801>(), Fields<802, 810>(Counter));
constexpr auto CPU = Join(Int4Fields<801>(), Int8Fields<802, 813>());

constexpr auto FILE_SYSTEM = Join(TextFields<901, 902>(), Int4Fields<903, 909>());
constexpr auto MORE_MEMORY = Int8Fields<1, 26>();
constexpr auto LOAD_ITEM = Join(TextFields<1>(), Int8Fields<2, 7>());
constexpr auto PARTITION = Join(TextFields<1>(), Int4Fields<2, 7>(), Int8Fields<8, 50>());
constexpr auto LAN = Join(TextFields<1501>(), Int8Fields<1502, 1508>());
constexpr auto SUMMARY = Int8Fields<1, 8>();

// Disks stand in table order, whatever their list says; their twins go by the list. A twin shares the
// definition lists of its base, so the list that arrived last serves both.
template <FieldSize Counter>
constexpr std::array P300_ROWS = {
    RecordLayout{1, 1, OVERALL_P300<Counter>}, RecordLayout{2, 2, DISK<Counter>, true},
    RecordLayout{3, 3, MEMORY<Counter>},       RecordLayout{4, 4, PROCESS<Counter>},
    RecordLayout{5, 5, CONFIG_P300<Counter>},  RecordLayout{6, 6, TIME<Counter>},
    RecordLayout{7, 7, NET_STATS<Counter>},    RecordLayout{8, 8, CPU_P300<Counter>},
    RecordLayout{9, 9, FILE_SYSTEM},
};
template <FieldSize Counter>
constexpr auto P720_ROWS = Join(P300_ROWS<Counter>, std::array{RecordLayout{15, 15, LAN}});

template <FieldSize Counter>
constexpr std::array P730_ROWS = {
    RecordLayout{1, 1, OVERALL},
    RecordLayout{2, 2, DISK<Counter>, true},
    RecordLayout{3, 3, MEMORY<Counter>},
    RecordLayout{4, 4, PROCESS<Counter>},
    RecordLayout{5, 5, CONFIG<Counter>},
    RecordLayout{6, 6, TIME<Counter>},
    RecordLayout{7, 7, NET_STATS<Counter>},
    RecordLayout{8, 8, CPU},
    RecordLayout{9, 9, FILE_SYSTEM},
    RecordLayout{13, 13, LOAD_ITEM},
    RecordLayout{14, 14, PARTITION},
    RecordLayout{15, 15, LAN},
    RecordLayout{16, 16, SUMMARY},
    RecordLayout{17, 1, OVERALL},
    RecordLayout{18, 2, DISK<Counter>},
    RecordLayout{19, 3, MEMORY<Counter>},
    RecordLayout{21, 4, PROCESS<Counter>},
    RecordLayout{22, 7, NET_STATS<Counter>},
    RecordLayout{23, 8, CPU},
    RecordLayout{24, 9, FILE_SYSTEM},
    RecordLayout{25, 15, LAN},
    RecordLayout{26, 16, SUMMARY},
    RecordLayout{29, 13, LOAD_ITEM},
    RecordLayout{31, 14, PARTITION},
};

template <FieldSize Counter>
constexpr auto P910_ROWS = Join(P730_ROWS<Counter>, std::array{RecordLayout{12, 12, MORE_MEMORY}});

}  // namespace

const RecordTable AIX_P910{"P910", P910_ROWS<NARROW>};
const RecordTable AIX_P910_64{"P910_64", P910_ROWS<WIDE>};
const RecordTable AIX_P730{"P730", P730_ROWS<NARROW>};
const RecordTable AIX_P730_64{"P730_64", P730_ROWS<WIDE>};
const RecordTable AIX_P720{"P720", P720_ROWS<NARROW>};
const RecordTable AIX_P720_64{"P720_64", P720_ROWS<WIDE>};
const RecordTable AIX_P300{"P300", P300_ROWS<NARROW>};
const RecordTable AIX_P300_64{"P300_64", P300_ROWS<WIDE>};

}  // namespace ozmo
