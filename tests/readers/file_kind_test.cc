#include "readers/file_kind.h"

#include <gtest/gtest.h>

#include <utility>

namespace ozmo {
namespace {

// The whole path counts, in the order of the rules; upper-case prefixes but those of Solaris.
TEST(ReaderKindOf, GoesByTheFirstRuleThatFits) {
  const std::pair<const char*, ReaderKind> cases[] = {
      {"/data/qtxa_old/qtxl_node.dat", ReaderKind::AIX},
      {"/data/qtxl_node/qtxs_node.dat", ReaderKind::SOLARIS},
      {"/data/qtxh_node/x.vmr", ReaderKind::HPUX},
      {"qtxsx_node_x.dat", ReaderKind::SOLARIS},
      {"QTXH_N.DAT", ReaderKind::HPUX},
      {"QTXA_N.DAT", ReaderKind::AIX},
      {"QTXL_N.DAT", ReaderKind::LINUX},
      {"QTXS_NODE_2011.DAT", ReaderKind::TRU64},
      {"QTXSX_NODE_2011.DAT", ReaderKind::TRU64},
      {"Qtxl_n.dat", ReaderKind::TRU64},
      {"NODE.VMR;12", ReaderKind::VMR},
      {"NODE.VMR.OLD", ReaderKind::TRU64},
  };
  for (const auto& [path, kind] : cases) EXPECT_EQ(ReaderKindOf(path), kind) << path;
}

TEST(IsVmrName, LooksAtTheEndOrBeforeAFileVersion) {
  for (const char* name : {"node.vmr", "NODE.VMR;12", "node.vmr;1"}) EXPECT_TRUE(IsVmrName(name)) << name;
  for (const char* name : {"NODE.VMR.OLD", "node.Vmr", "vmr", ""}) EXPECT_FALSE(IsVmrName(name)) << name;
}

}  // namespace
}  // namespace ozmo
