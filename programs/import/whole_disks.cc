#include "programs/import/whole_disks.h"

#include <set>
#include <string_view>

#include "runtime/text.h"

namespace ozmo::import {
namespace {

// sda1 is a part of sda, and nvme0n1p2 of nvme0n1: where a disk's name ends in a digit, a p comes between.
std::string_view DiskOf(std::string_view partition) {
  std::string_view disk = partition;
  while (!disk.empty() && IsDigit(disk.back())) disk.remove_suffix(1);
  if (disk.size() > 1 && disk.back() == 'p' && IsDigit(disk[disk.size() - 2])) disk.remove_suffix(1);
  return disk;
}

bool LiesOnOthers(std::string_view name) {
  for (const std::string_view kind : {"loop", "ram", "zram", "dm-", "md"}) {
    if (name.size() > kind.size() && name.starts_with(kind) && IsDigit(name[kind.size()])) return true;
  }
  return false;
}

}  // namespace

void KeepWholeDisks(std::vector<host_file::DiskFigures>& disks) {
  std::set<std::string, std::less<>> names;
  for (const host_file::DiskFigures& disk : disks) names.insert(disk.name);
  std::erase_if(disks, [&](const host_file::DiskFigures& disk) {
    const std::string_view whole = DiskOf(disk.name);
    return LiesOnOthers(disk.name) || (whole != disk.name && names.contains(whole));
  });
}

}  // namespace ozmo::import
