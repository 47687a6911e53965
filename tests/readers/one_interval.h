// Delivers the first interval of a small collector file that a test writes.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "readers/collector_reader.h"
#include "readers/formats.h"
#include "runtime/runtime.h"
#include "tests/support/temp_directory.h"
#include "tools/collector_writer.h"

namespace ozmo::testing {

using sample::CollectorWriter;
using sample::EncodedField;
using sample::Int32;
using sample::Int64;
using sample::Text;

constexpr Seconds NOON = 1329912000;

// A test derives from it with its format's time and configuration record, and writes to `writer_`: its
// definition lists, Begin, its records. Samples stand `step` seconds apart.
class OneIntervalTest : public ::testing::Test {
 protected:
  OneIntervalTest(const CollectorFormat& format, sample::ByteOrder order, std::string fileName)
      : writer_(order), reader_(format, runtime_), path_(directory_ / fileName) {
    setenv("TZ", "UTC", 1);
    tzset();
  }

  virtual void WriteTime(Seconds time) = 0;

  void WriteSamples(Seconds step) {
    WriteTime(NOON - step);
    WriteTime(NOON);
  }

  int EntryPass() {
    EXPECT_TRUE(writer_.WriteFile(path_));
    return reader_.EntryPass(path_, node_, firstRecordTime_);
  }

  const VmrContext& Deliver() {
    WriteTime(NOON + 600);
    EXPECT_EQ(EntryPass(), 1);
    context_.periodStart = NOON;
    context_.periodEnd = NOON + 3600;
    EXPECT_EQ(reader_.Open(context_), 1);
    EXPECT_EQ(reader_.Next(context_), 1);
    return context_;
  }

  TempDirectory directory_;
  CollectorWriter writer_;
  Runtime runtime_;
  CollectorReader reader_;
  VmrContext context_;
  std::string path_;
  std::string node_;
  Seconds firstRecordTime_ = 0;
};

}  // namespace ozmo::testing
