// What ozmo_import takes from an archive of Performance Co-Pilot, which the test writes by its own library.
#include <gtest/gtest.h>
#include <pcp/pmapi.h>
// After what it is written in terms of.
#include <pcp/import.h>

#include <string>
#include <vector>

#include "programs/import/source.h"
#include "tests/support/temp_directory.h"

namespace ozmo::import {
namespace {

constexpr int BEGIN = 1329897600;  // 22-Feb-2012:08:00:00

struct MetricRow {
  const char* name;
  int number;
  int type;
  int domain;  // of its instances; 0: it has one value
};
constexpr int PROCESSORS = 1;
constexpr int DISKS = 2;
constexpr int PROCESSES = 3;
constexpr MetricRow METRICS[] = {{"mem.physmem", 1, PM_TYPE_U64, 0},
                                 {"kernel.percpu.cpu.user", 2, PM_TYPE_U64, PROCESSORS},
                                 {"disk.dev.read", 3, PM_TYPE_U32, DISKS},
                                 {"proc.psinfo.cmd", 4, PM_TYPE_STRING, PROCESSES},
                                 {"proc.psinfo.psargs", 5, PM_TYPE_STRING, PROCESSES},
                                 {"proc.psinfo.utime", 6, PM_TYPE_U32, PROCESSES},
                                 {"proc.psinfo.start_time", 7, PM_TYPE_U64, PROCESSES},
                                 {"proc.id.euid_nm", 8, PM_TYPE_STRING, PROCESSES}};

class Archive {
 public:
  explicit Archive(const std::string& path) {
    pmiStart(path.c_str(), 0);
    pmiSetHostname("web");
    pmiSetTimezone("UTC");
    for (const MetricRow& row : METRICS) {
      const pmInDom domain = row.domain == 0 ? PM_INDOM_NULL : pmiInDom(60, row.domain);
      const int added = pmiAddMetric(row.name, pmiID(60, 0, row.number), row.type, domain, PM_SEM_COUNTER,
                                     pmiUnits(0, 0, 0, 0, 0, 0));
      EXPECT_EQ(added, 0) << row.name;
    }
    pmiAddInstance(pmiInDom(60, PROCESSORS), "cpu0", 0);
    pmiAddInstance(pmiInDom(60, DISKS), "sda", 0);
    pmiAddInstance(pmiInDom(60, DISKS), "sdb", 1);
    pmiAddInstance(pmiInDom(60, PROCESSES), "000070 cc1", 70);
    pmiAddInstance(pmiInDom(60, PROCESSES), "000071 kworker", 71);
  }
  void Put(const char* metric, const char* instance, const std::string& value) {
    EXPECT_EQ(pmiPutValue(metric, instance, value.c_str()), 0) << metric;
  }
  void PutProcess(const char* instance, const char* arguments, int userMilliseconds, int start) {
    Put("proc.psinfo.cmd", instance, instance + 7);
    Put("proc.psinfo.psargs", instance, arguments);
    Put("proc.psinfo.utime", instance, std::to_string(userMilliseconds));
    Put("proc.psinfo.start_time", instance, std::to_string(start));
    Put("proc.id.euid_nm", instance, "www");
  }
  // What the host counts, and one process. Ends the moment, with all that was put before.
  void PutHost(int second, const char* user, const char* reads, int processMilliseconds) {
    Put("mem.physmem", "", "4000");
    Put("kernel.percpu.cpu.user", "cpu0", user);
    Put("disk.dev.read", "sda", reads);
    PutProcess("000070 cc1", "/bin/cc1 a.c", processMilliseconds, 1000);
    EXPECT_EQ(pmiWrite(BEGIN + second, 0), 0);
  }
};

std::string TextOf(const Sample& sample) {
  std::string text = sample.node + " " + std::to_string(sample.time - BEGIN) + "/" +
                     std::to_string(sample.seconds) + " cpu " +
                     std::to_string(sample.figures.processors.at(0).user);
  for (const auto& disk : sample.figures.disks)
    text += " " + disk.name + " " + std::to_string(disk.figures[0]);
  for (const auto& process : sample.figures.processes) {
    text += " " + process.command + "(" + process.user + ") " + std::to_string(process.own.userTicks);
  }
  return text;
}

TEST(PcpTest, CountersInstancesAndMarks) {
  const testing::TempDirectory directory;
  const std::string path = directory / "web";
  Archive archive(path);
  archive.PutHost(0, "1000", "4294967290", 500);
  archive.Put("disk.dev.read", "sdb", "100");  // a disk and a process come
  archive.PutProcess("000071 kworker", "(kworker)", 30, 5000);
  archive.PutHost(60, "3000", "4294967295", 900);
  archive.Put("disk.dev.read", "sdb", "130");  // the process is another one of the same number
  archive.PutProcess("000071 kworker", "(kworker)", 20, 115000);
  archive.PutHost(120, "3500", "4", 900);   // a counter wraps
  archive.PutHost(180, "3600", "14", 950);  // both are gone
  EXPECT_EQ(pmiPutMark(), 0);
  archive.PutHost(600, "100", "1", 10);  // after a restart
  archive.PutHost(660, "400", "8", 40);
  EXPECT_EQ(pmiEnd(), 0);

  std::vector<std::string> texts;
  const auto take = [&](const Sample& sample) {
    texts.push_back(TextOf(sample));
    return "";
  };
  const Source* source = FindSource("pcp");
  ASSERT_NE(source, nullptr);
  EXPECT_EQ(source->readRecording(path, take), "");
  EXPECT_EQ(texts,
            (std::vector<std::string>{"web 60/60 cpu 200 sda 5 /bin/cc1 a.c(www) 40 [kworker](www) 3",
                                      "web 120/60 cpu 50 sda 0 sdb 30 /bin/cc1 a.c(www) 0 [kworker](www) 2",
                                      "web 180/60 cpu 10 sda 10 /bin/cc1 a.c(www) 5",
                                      "web 660/60 cpu 30 sda 7 /bin/cc1 a.c(www) 3"}));
  EXPECT_NE(source->readRecording(directory / "none", nullptr), "");
}

}  // namespace
}  // namespace ozmo::import
