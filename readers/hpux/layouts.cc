#include "readers/hpux/layouts.h"

#include "readers/field_spec.h"

namespace ozmo {
namespace {

constexpr FieldSize NARROW = FieldSize::INT4;
constexpr FieldSize WIDE = FieldSize::INT8;

constexpr auto OVERALL = Int4Fields<101, 116>();

// Layouts by the width of the version's counters.
template <FieldSize Counter>
constexpr auto DISK = Join(TextFields<201>(), Fields<202, 204>(Counter), Int8Fields<205, 206>(),
                           Fields<207, 208>(Counter));
template <FieldSize Counter>
constexpr auto MEMORY = Join(Int8Fields<301>(), Int4Fields<302>(), Fields<303, 323>(Counter),
                             Int4Fields<324, 325>(), Fields<326, 328>(Counter));
template <FieldSize Counter>
constexpr auto PROCESS = Join(Int4Fields<401, 405>(), Fields<406, 414>(Counter), Int4Fields<415>(),
                              Fields<416, 416>(Counter), TextFields<417, 418>());
template <FieldSize Counter>
constexpr auto TIME = Fields<601, 601>(Counter);

constexpr auto CONFIG =
    Join(Int8Fields<503>(), Int4Fields<506>(), TextFields<504, 505>(), TextFields<507>(),
         TextFields<501, 502>(), Int4Fields<508>(), TextFields<509, 511>(), Int4Fields<512, 515>());
constexpr auto NET_STATS = Int4Fields<701, 765>();
constexpr auto CPU = Int4Fields<801, 812>();
constexpr auto FILE_SYSTEM = Join(TextFields<901, 902>(), Int4Fields<903, 909>());
constexpr auto NET_STATS_2 =
    Join(Int4Fields<1001, 1015>(), Int4Fields<1017>(), Int4Fields<1016>(), Int4Fields<1018, 1100>());
constexpr auto LOAD_ITEM = Join(TextFields<1>(), Int8Fields<2, 7>());
constexpr auto LAN = Join(TextFields<1501>(), Int8Fields<1502, 1508>());
constexpr auto SUMMARY = Int8Fields<1, 8>();

// A twin shares the definition lists of its base, so the list that arrived last serves both.
constexpr std::array V520_ROWS = {
    RecordLayout{1, 1, OVERALL},         RecordLayout{2, 2, DISK<NARROW>}, RecordLayout{3, 3, MEMORY<NARROW>},
    RecordLayout{4, 4, PROCESS<NARROW>}, RecordLayout{5, 5, CONFIG},       RecordLayout{6, 6, TIME<NARROW>},
    RecordLayout{7, 7, NET_STATS},       RecordLayout{8, 8, CPU},
};
constexpr std::array V530_ROWS = {
    RecordLayout{1, 1, OVERALL},         RecordLayout{2, 2, DISK<NARROW>}, RecordLayout{3, 3, MEMORY<NARROW>},
    RecordLayout{4, 4, PROCESS<NARROW>}, RecordLayout{5, 5, CONFIG},       RecordLayout{6, 6, TIME<NARROW>},
    RecordLayout{7, 7, NET_STATS},       RecordLayout{8, 8, CPU},          RecordLayout{9, 9, FILE_SYSTEM},
};
template <FieldSize Counter>
constexpr std::array P300_ROWS = {
    RecordLayout{1, 1, OVERALL},         RecordLayout{2, 2, DISK<Counter>},
    RecordLayout{3, 3, MEMORY<Counter>}, RecordLayout{4, 4, PROCESS<Counter>},
    RecordLayout{5, 5, CONFIG},          RecordLayout{6, 6, TIME<Counter>},
    RecordLayout{7, 7, NET_STATS},       RecordLayout{8, 8, CPU},
    RecordLayout{9, 9, FILE_SYSTEM},     RecordLayout{11, 11, NET_STATS_2},
};
template <FieldSize Counter>
constexpr std::array P720_ROWS = {
    RecordLayout{1, 1, OVERALL},         RecordLayout{2, 2, DISK<Counter>},
    RecordLayout{3, 3, MEMORY<Counter>}, RecordLayout{4, 4, PROCESS<Counter>},
    RecordLayout{5, 5, CONFIG},          RecordLayout{6, 6, TIME<Counter>},
    RecordLayout{7, 7, NET_STATS},       RecordLayout{8, 8, CPU},
    RecordLayout{9, 9, FILE_SYSTEM},     RecordLayout{11, 11, NET_STATS_2},
    RecordLayout{15, 15, LAN},
};
template <FieldSize Counter>
constexpr std::array P730_ROWS = {
    RecordLayout{1, 1, OVERALL},
    RecordLayout{2, 2, DISK<Counter>},
    RecordLayout{3, 3, MEMORY<Counter>},
    RecordLayout{4, 4, PROCESS<Counter>},
    RecordLayout{5, 5, CONFIG},
    RecordLayout{6, 6, TIME<Counter>},
    RecordLayout{7, 7, NET_STATS},
    RecordLayout{8, 8, CPU},
    RecordLayout{9, 9, FILE_SYSTEM},
    RecordLayout{11, 11, NET_STATS_2},
    RecordLayout{13, 13, LOAD_ITEM},
    RecordLayout{15, 15, LAN},
    RecordLayout{16, 16, SUMMARY},
    RecordLayout{17, 1, OVERALL},
    RecordLayout{18, 2, DISK<Counter>},
    RecordLayout{19, 3, MEMORY<Counter>},
    RecordLayout{21, 4, PROCESS<Counter>},
    RecordLayout{22, 11, NET_STATS_2},
    RecordLayout{23, 8, CPU},
    RecordLayout{24, 9, FILE_SYSTEM},
    RecordLayout{25, 15, LAN},
    RecordLayout{26, 16, SUMMARY},
    RecordLayout{29, 13, LOAD_ITEM},
};

}  // namespace

const RecordTable HPUX_P730{"P730", P730_ROWS<NARROW>};
const RecordTable HPUX_P730_64{"P730_64", P730_ROWS<WIDE>};
const RecordTable HPUX_P720{"P720", P720_ROWS<NARROW>};
const RecordTable HPUX_P720_64{"P720_64", P720_ROWS<WIDE>};
const RecordTable HPUX_P300{"P300", P300_ROWS<NARROW>};
const RecordTable HPUX_P300_64{"P300_64", P300_ROWS<WIDE>};
const RecordTable HPUX_V530{"V530", V530_ROWS};
const RecordTable HPUX_V520{"V520", V520_ROWS};

}  // namespace ozmo
