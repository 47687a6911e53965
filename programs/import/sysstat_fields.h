// The fields that sadf -p prints, as far as they are of use: see sar(1).
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace ozmo::import {

// What a device of sadf's is, by the fields that it has.
enum class Kind { HOST, PROCESSOR, DISK, ADAPTER, FILE_SYSTEM, MOUNT_POINT };

// The fields that are of use, each at its place in the values of a device.
struct Field {
  Kind kind;
  std::string_view name;
};
enum FieldPlace : size_t {
  USER,
  NICE,
  SYSTEM,
  WAIT,
  IRQ,
  SOFT,
  GUEST,
  GUEST_NICE,
  IDLE,  // processors
  MEMORY_FREE,
  MEMORY_USED,
  BUFFERS,
  CACHED,
  SLAB,
  PAGED_IN,
  PAGED_OUT,
  SWAPPED_IN,
  SWAPPED_OUT,  // host
  OPERATIONS,
  READ_KB,
  WRITTEN_KB,
  QUEUE,
  WAIT_MS,
  BUSY,  // disks
  PACKETS_IN,
  PACKETS_OUT,
  KB_IN,
  KB_OUT,
  ERRORS_IN,
  ERRORS_OUT,
  COLLISIONS,  // adapters
  MB_FREE,
  MB_USED,
  USED_PERCENT,
  FILES_FREE,
  FILES_USED,  // file systems
  FIELD_COUNT
};
constexpr Field FIELDS[] = {
    {Kind::PROCESSOR, "%usr"},
    {Kind::PROCESSOR, "%nice"},
    {Kind::PROCESSOR, "%sys"},
    {Kind::PROCESSOR, "%iowait"},
    {Kind::PROCESSOR, "%irq"},
    {Kind::PROCESSOR, "%soft"},
    {Kind::PROCESSOR, "%guest"},
    {Kind::PROCESSOR, "%gnice"},
    {Kind::PROCESSOR, "%idle"},
    {Kind::HOST, "kbmemfree"},
    {Kind::HOST, "kbmemused"},
    {Kind::HOST, "kbbuffers"},
    {Kind::HOST, "kbcached"},
    {Kind::HOST, "kbslab"},
    {Kind::HOST, "pgpgin/s"},
    {Kind::HOST, "pgpgout/s"},
    {Kind::HOST, "pswpin/s"},
    {Kind::HOST, "pswpout/s"},
    {Kind::DISK, "tps"},
    {Kind::DISK, "rkB/s"},
    {Kind::DISK, "wkB/s"},
    {Kind::DISK, "aqu-sz"},
    {Kind::DISK, "await"},
    {Kind::DISK, "%util"},
    {Kind::ADAPTER, "rxpck/s"},
    {Kind::ADAPTER, "txpck/s"},
    {Kind::ADAPTER, "rxkB/s"},
    {Kind::ADAPTER, "txkB/s"},
    {Kind::ADAPTER, "rxerr/s"},
    {Kind::ADAPTER, "txerr/s"},
    {Kind::ADAPTER, "coll/s"},
    {Kind::FILE_SYSTEM, "MBfsfree"},
    {Kind::FILE_SYSTEM, "MBfsused"},
    {Kind::FILE_SYSTEM, "%ufsused"},
    {Kind::FILE_SYSTEM, "Ifree"},
    {Kind::FILE_SYSTEM, "Iused"},
};
static_assert(std::size(FIELDS) == FIELD_COUNT);

// Protocol counters a second, each at its place in the kernel's list, and their values after those of FIELDS.
struct ProtocolField {
  std::string_view name;
  size_t kernel;
};
constexpr ProtocolField PROTOCOL_FIELDS[] = {
    {"irec/s", 2},     {"ihdrerr/s", 3},  {"iadrerr/s", 4},  {"fwddgm/s", 5},   {"iukwnpr/s", 6},
    {"idisc/s", 7},    {"idel/s", 8},     {"orq/s", 9},      {"odisc/s", 10},   {"onort/s", 11},
    {"asmrq/s", 13},   {"asmok/s", 14},   {"asmf/s", 15},    {"fragok/s", 16},  {"fragf/s", 17},
    {"fragcrt/s", 18}, {"imsg/s", 19},    {"ierr/s", 20},    {"idstunr/s", 21}, {"itmex/s", 22},
    {"iparmpb/s", 23}, {"isrcq/s", 24},   {"iredir/s", 25},  {"iech/s", 26},    {"iechr/s", 27},
    {"itm/s", 28},     {"itmr/s", 29},    {"iadrmk/s", 30},  {"iadrmkr/s", 31}, {"omsg/s", 32},
    {"oerr/s", 33},    {"odstunr/s", 34}, {"otmex/s", 35},   {"oparmpb/s", 36}, {"osrcq/s", 37},
    {"oredir/s", 38},  {"oech/s", 39},    {"oechr/s", 40},   {"otm/s", 41},     {"otmr/s", 42},
    {"oadrmk/s", 43},  {"oadrmkr/s", 44}, {"active/s", 49},  {"passive/s", 50}, {"atmptf/s", 51},
    {"estres/s", 52},  {"tcpsck", 53},    {"iseg/s", 54},    {"oseg/s", 55},    {"retrans/s", 56},
    {"idgm/s", 57},    {"noport/s", 58},  {"idgmerr/s", 59}, {"odgm/s", 60}};
constexpr size_t IP_RECEIVED = 2;
constexpr size_t ESTABLISHED = 53;  // a level: the sockets in use

// The place of a field among the values of a device; false for one that is of no use.
inline bool FindField(std::string_view name, size_t& place, Kind& kind) {
  const auto* field = std::ranges::find(FIELDS, name, &Field::name);
  if (field != std::end(FIELDS)) {
    place = static_cast<size_t>(field - FIELDS);
    kind = field->kind;
    return true;
  }
  const auto* protocol = std::ranges::find(PROTOCOL_FIELDS, name, &ProtocolField::name);
  if (protocol == std::end(PROTOCOL_FIELDS)) return false;
  place = FIELD_COUNT + protocol->kernel;
  kind = Kind::HOST;
  return true;
}

}  // namespace ozmo::import
