// The fields that sadf -p prints, as far as they are of use: see sar(1).
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "runtime/ordered_rows.h"

namespace ozmo::import {

// What a device of sadf's is, by the fields that it has.
enum class DeviceKind { HOST, PROCESSOR, DISK, ADAPTER, FILE_SYSTEM, MOUNT_POINT };

// The place of a field among the values of a device.
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

struct Field {
  FieldPlace place;
  DeviceKind kind;
  std::string_view name;
};
constexpr Field FIELDS[] = {
    {USER, DeviceKind::PROCESSOR, "%usr"},          {NICE, DeviceKind::PROCESSOR, "%nice"},
    {SYSTEM, DeviceKind::PROCESSOR, "%sys"},        {WAIT, DeviceKind::PROCESSOR, "%iowait"},
    {IRQ, DeviceKind::PROCESSOR, "%irq"},           {SOFT, DeviceKind::PROCESSOR, "%soft"},
    {GUEST, DeviceKind::PROCESSOR, "%guest"},       {GUEST_NICE, DeviceKind::PROCESSOR, "%gnice"},
    {IDLE, DeviceKind::PROCESSOR, "%idle"},         {MEMORY_FREE, DeviceKind::HOST, "kbmemfree"},
    {MEMORY_USED, DeviceKind::HOST, "kbmemused"},   {BUFFERS, DeviceKind::HOST, "kbbuffers"},
    {CACHED, DeviceKind::HOST, "kbcached"},         {SLAB, DeviceKind::HOST, "kbslab"},
    {PAGED_IN, DeviceKind::HOST, "pgpgin/s"},       {PAGED_OUT, DeviceKind::HOST, "pgpgout/s"},
    {SWAPPED_IN, DeviceKind::HOST, "pswpin/s"},     {SWAPPED_OUT, DeviceKind::HOST, "pswpout/s"},
    {OPERATIONS, DeviceKind::DISK, "tps"},          {READ_KB, DeviceKind::DISK, "rkB/s"},
    {WRITTEN_KB, DeviceKind::DISK, "wkB/s"},        {QUEUE, DeviceKind::DISK, "aqu-sz"},
    {WAIT_MS, DeviceKind::DISK, "await"},           {BUSY, DeviceKind::DISK, "%util"},
    {PACKETS_IN, DeviceKind::ADAPTER, "rxpck/s"},   {PACKETS_OUT, DeviceKind::ADAPTER, "txpck/s"},
    {KB_IN, DeviceKind::ADAPTER, "rxkB/s"},         {KB_OUT, DeviceKind::ADAPTER, "txkB/s"},
    {ERRORS_IN, DeviceKind::ADAPTER, "rxerr/s"},    {ERRORS_OUT, DeviceKind::ADAPTER, "txerr/s"},
    {COLLISIONS, DeviceKind::ADAPTER, "coll/s"},    {MB_FREE, DeviceKind::FILE_SYSTEM, "MBfsfree"},
    {MB_USED, DeviceKind::FILE_SYSTEM, "MBfsused"}, {USED_PERCENT, DeviceKind::FILE_SYSTEM, "%ufsused"},
    {FILES_FREE, DeviceKind::FILE_SYSTEM, "Ifree"}, {FILES_USED, DeviceKind::FILE_SYSTEM, "Iused"},
};
static_assert(RowsAreInOrder(FIELDS, &Field::place, FIELD_COUNT));

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
inline bool FindField(std::string_view name, size_t& place, DeviceKind& kind) {
  const auto* field = std::ranges::find(FIELDS, name, &Field::name);
  if (field != std::end(FIELDS)) {
    place = field->place;
    kind = field->kind;
    return true;
  }
  const auto* protocol = std::ranges::find(PROTOCOL_FIELDS, name, &ProtocolField::name);
  if (protocol == std::end(PROTOCOL_FIELDS)) return false;
  place = FIELD_COUNT + protocol->kernel;
  kind = DeviceKind::HOST;
  return true;
}

}  // namespace ozmo::import
