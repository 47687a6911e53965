// The static records and the tree of each platform: what -item can name, under which texts.
//
// Where platforms agree a text is said once, in tables_common.h. Texts are part of the tool's contract with
// scripts: double and trailing blanks, capitals and spellings stay as they are.
#pragma once

#include <span>

#include "catalog/tables.h"

namespace ozmo {

std::span<const RecordText> SolarisRecords();
std::span<const RowText> SolarisTree();

std::span<const RecordText> LinuxRecords();
std::span<const RowText> LinuxTree();

std::span<const RecordText> AixRecords();
std::span<const RowText> AixTree();

std::span<const RecordText> HpuxRecords();
std::span<const RowText> HpuxTree();

std::span<const RecordText> Tru64Records();
std::span<const RowText> Tru64Tree();

std::span<const RecordText> VmrRecords();
std::span<const RowText> VmrTree();

}  // namespace ozmo
