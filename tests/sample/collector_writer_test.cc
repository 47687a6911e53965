// The writer's bytes against bytes written out by hand: all other tests rely on them.
#include "programs/sample/collector_writer.h"

#include <gtest/gtest.h>

#include <string>

namespace ozmo::sample {
namespace {

std::string Bytes(std::initializer_list<int> values) {
  std::string bytes;
  for (int value : values) bytes += static_cast<char>(value);
  return bytes;
}

TEST(CollectorWriterTest, RecordsCountTheirHeadAndListsHaveMultiplesOfTheirRecord) {
  CollectorWriter big(WrittenOrder::BIG);
  big.Record(6, {Int32(-2), Int64(0x0102030405060708), Text("ab")}).OrderList(7, {701}).DivisorList(7, {2});
  EXPECT_EQ(big.Bytes(),
            Bytes({0, 0, 0, 23, 0, 0, 0, 6, 255, 255, 255, 254, 1, 2, 3, 4, 5, 6, 7, 8, 2, 'a', 'b'}) +
                Bytes({0, 0, 0, 12, 0, 0, 2, 188, 0, 0, 2, 189}) +
                Bytes({0, 0, 0, 12, 0, 0, 0, 70, 0, 0, 0, 2}));
  CollectorWriter little(WrittenOrder::LITTLE);
  little.Record(258, {Int32(3)});
  EXPECT_EQ(little.Bytes(), Bytes({12, 0, 0, 0, 2, 1, 0, 0, 3, 0, 0, 0}));
}

}  // namespace
}  // namespace ozmo::sample
