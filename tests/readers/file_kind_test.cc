#include "readers/file_kind.h"

#include <gtest/gtest.h>

namespace ozmo {
namespace {

TEST(ReaderKindOf, GoesByTheWholePathInTheOrderOfTheRules) {
  EXPECT_EQ(ReaderKindOf("/data/qtxa_old/qtxl_node.dat"), ReaderKind::AIX);
  EXPECT_EQ(ReaderKindOf("/data/qtxl_node/qtxs_node.dat"), ReaderKind::SOLARIS);
  EXPECT_EQ(ReaderKindOf("/data/qtxh_node/x.vmr"), ReaderKind::HPUX);
  EXPECT_EQ(ReaderKindOf("qtxsx_node_x.dat"), ReaderKind::SOLARIS);
}

TEST(ReaderKindOf, TakesUpperCasePrefixesButThoseOfSolaris) {
  EXPECT_EQ(ReaderKindOf("QTXH_N.DAT"), ReaderKind::HPUX);
  EXPECT_EQ(ReaderKindOf("QTXA_N.DAT"), ReaderKind::AIX);
  EXPECT_EQ(ReaderKindOf("QTXL_N.DAT"), ReaderKind::LINUX);
  EXPECT_EQ(ReaderKindOf("QTXS_NODE_2011.DAT"), ReaderKind::TRU64);
  EXPECT_EQ(ReaderKindOf("QTXSX_NODE_2011.DAT"), ReaderKind::TRU64);
  EXPECT_EQ(ReaderKindOf("Qtxl_n.dat"), ReaderKind::TRU64);
}

TEST(IsVmrName, LooksAtTheEndOrAheadOfAFileVersion) {
  EXPECT_TRUE(IsVmrName("node.vmr"));
  EXPECT_TRUE(IsVmrName("NODE.VMR;12"));
  EXPECT_TRUE(IsVmrName("node.vmr;1"));
  EXPECT_FALSE(IsVmrName("NODE.VMR.OLD"));
  EXPECT_FALSE(IsVmrName("node.Vmr"));
  EXPECT_FALSE(IsVmrName("vmr"));
  EXPECT_FALSE(IsVmrName(""));
  EXPECT_EQ(ReaderKindOf("NODE.VMR;12"), ReaderKind::VMR);
  EXPECT_EQ(ReaderKindOf("NODE.VMR.OLD"), ReaderKind::TRU64);
}

}  // namespace
}  // namespace ozmo
