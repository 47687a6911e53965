// Delivers the first interval of a small collector file that a test writes.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "readers/collector_reader.h"
#include "readers/formats.h"
#include "runtime/runtime.h"
#include "sample/collector_writer.h"
#include "tests/readers/figures.h"
#include "tests/support/environment.h"
#include "tests/support/temp_directory.h"

namespace ozmo::testing {

using sample::CollectorWriter;
using sample::EncodedField;
using sample::Int32;
using sample::Int64;
using sample::Text;

constexpr Seconds NOON = 1329912000;

// A test derives from it with its format's time and head, and writes to `writer_`: its definition lists,
// Begin, its records.
class OneIntervalTest : public ::testing::Test {
 protected:
  OneIntervalTest(const CollectorFormat& format, sample::ByteOrder order, const std::string& fileName)
      : order_(order), writer_(order), reader_(format, runtime_), path_(directory_ / fileName) {}

  virtual void WriteTime(Seconds time) = 0;
  // The lists of configuration and time, the configuration, and samples up to noon.
  virtual void Begin(const std::string& version) = 0;

  void WriteSamples(Seconds step = 60) {
    WriteTime(NOON - step);
    WriteTime(NOON);
  }

  int EntryPass() {
    EXPECT_TRUE(writer_.WriteFile(path_));
    return reader_.EntryPass(path_, node_, firstRecordTime_);
  }

  const VmrContext& Deliver() {
    WriteTime(NOON + 600);
    reader_.Close(context_);
    EXPECT_EQ(EntryPass(), 1);
    context_.periodStart = NOON;
    context_.periodEnd = NOON + 3600;
    EXPECT_EQ(reader_.Open(context_), 1);
    EXPECT_EQ(reader_.Next(context_), 1);
    return context_;
  }

  // An interval that holds one record.
  const VmrContext& DeliverRecord(const std::string& version, uint32_t type,
                                  const std::vector<int32_t>& order, const std::vector<EncodedField>& fields,
                                  const std::vector<int32_t>& divisors = {}) {
    writer_.OrderList(type, order).DivisorList(type, divisors);
    Begin(version);
    writer_.Record(type, fields);
    return Deliver();
  }

  // Forgets the file and what was delivered of it.
  void StartOver() {
    writer_ = CollectorWriter(order_);
    context_ = VmrContext();
  }

  ScopedVariable zone_{"TZ", "UTC"};
  TempDirectory directory_;
  sample::ByteOrder order_;
  CollectorWriter writer_;
  Runtime runtime_;
  CollectorReader reader_;
  VmrContext context_;
  std::string path_;
  std::string node_;
  Seconds firstRecordTime_ = 0;
  int64_t configuredInterval_ = 60;
};

}  // namespace ozmo::testing
