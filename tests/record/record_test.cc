// What ozmo_record makes of a host, from the files of /proc to the records that the readers deliver.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/record/story.h"

namespace ozmo::testing {
namespace {

// The second and the fifth moment are too early for a sample. Two processors; disks with partitions and a
// volume; a make whose compilers come and go.
constexpr char TWO_SAMPLES[] = R"(
at 1329897600 1000
at 1329897614 1014
at 1329897615 1015
file proc/stat
| cpu  2000 200 1000 16000 800 20 40 0 0 0
| cpu0 1000 100 500 8000 400 10 20 0 0 0
| cpu1 1000 100 500 8000 400 10 20 0 0 0
| intr 0
| ctxt 1000
| btime 1329896600
| processes 100
| procs_running 1
| procs_blocked 0
file proc/cpuinfo
| processor : 0
| core id : 0
|
file proc/meminfo
| MemTotal:        2097152 kB
| MemFree:          512000 kB
| MemAvailable:    1000000 kB
| Buffers:           64000 kB
| Cached:           500000 kB
| Shmem:            100000 kB
file proc/vmstat
| pgpgin 4000
| pgpgout 8000
| pswpin 100
| pswpout 200
file proc/diskstats
|    8       0 sda 1000 100 80000 500 2000 200 160000 900 0 1000 1400 0 0 0 0 7 7
|    8       1 sda1 1000 100 80000 500 2000 200 160000 900 0 1000 1400 0 0 0 0
|  253       0 dm-0 1000 100 80000 500 2000 200 160000 900 0 1000 1400 0 0 0 0
|  104       0 cciss/c0d0 9000 0 90000 9000 9000 0 90000 9000 0 9000 9000
file sys/block/sda/device
file sys/block/sdb/device
file sys/block/cciss!c0d0/device
file sys/block/dm-0/size
file proc/net/snmp
| Ip: Forwarding DefaultTTL InReceives InHdrErrors InAddrErrors ForwDatagrams InUnknownProtos InDiscards InDelivers OutRequests OutDiscards OutNoRoutes ReasmTimeout ReasmReqds ReasmOKs ReasmFails FragOKs FragFails FragCreates OutTransmits
| Ip: 2 64 1000 0 0 0 0 0 1000 2000 0 0 0 0 0 0 0 0 0 2000
| Icmp: InMsgs InErrors InCsumErrors InDestUnreachs
| Icmp: 10 0 7 10
| Tcp: RtoAlgorithm RtoMin RtoMax MaxConn ActiveOpens PassiveOpens AttemptFails EstabResets CurrEstab InSegs OutSegs RetransSegs InErrs
| Tcp: 1 200 120000 -1 10 10 1 1 5 1000 2000 0 0
| Udp: InDatagrams NoPorts InErrors OutDatagrams RcvbufErrors
| Udp: 100 0 0 200 0
file proc/net/dev
| Inter-|   Receive                                                |  Transmit
|  face |bytes    packets errs drop fifo frame compressed multicast|bytes    packets errs drop fifo colls carrier compressed
|     lo:     100       1    0    0    0     0          0         0      100       1    0    0    0     0       0          0
|   eth0: 1000000    5000    1    0    0     0          0         0   500000    4000    2    0    0     3       0          0
|   eth1:       0       0    0    0    0     0          0         0        0       0    0    0    0     0       0          0
file proc/self/mountinfo
| 20 27 0:21 / /proc rw - proc proc rw
| 27 1 8:1 / / rw - ext4 /dev/sda1 rw
| 28 27 8:1 /srv /mnt/bind rw - ext4 /dev/sda1 rw
| 29 27 7:0 / /snap/x ro - squashfs /dev/loop0 ro
| 30 27 0:50 / /net rw - nfs4 server:/export rw
| 31 27 8:17 / /private rw - xfs /dev/sdb1 rw
| 32 27 0:60 / /tank/home rw - zfs tank/home rw
file statvfs
| / 4096 1000 400 300 100 50
| /mnt/bind 4096 1000 400 300 100 50
| /snap/x 1024 10 0 0 0 0
| /private 13
| /tank/home 131072 2000 2000 2000 9 8
process 1 comm=systemd utime=10 cmd=/sbin/init
process 2 comm=kthreadd flags=2129984
process 7 ppid=2 comm=kworker/0:1-ev flags=69238880 stime=100
process 50 ppid=1 comm=Xorg starttime=900 utime=99999 cmd=/usr/bin/Xorg
process 100 ppid=1 comm=make cutime=1000 cstime=100 cminflt=500 cmd=/usr/bin/make -j 8
process 101 ppid=100 comm=cc1 utime=500 stime=60 minflt=200 cmd=/usr/lib/gcc/cc1 a.c
at 1329897675.001 1075.001
file proc/stat
| cpu  5000 800 2200 16600 1000 50 590 0 0 0
| cpu0 4300 400 1100 8600 1000 40 590 0 0 0
| cpu1 1600 100 500 13400 390 10 20 600 0 0
| intr 0
file proc/vmstat
| pgpgin 4240
| pgpgout 8480
| pswpin 160
| pswpout 320
file proc/diskstats
|    8       0 sda 1060 106 81200 800 2120 212 162400 1500 4 31000 61400 0 0 0 0 7 7
|    8       1 sda1 1060 106 81200 800 2120 212 162400 1500 4 31000 61400 0 0 0 0
|    8      16 sdb 70000 0 7000 70 70000 0 7000 70 0 700 700
|  104       0 cciss/c0d0 5 0 50 5 5 0 50 5 0 5 5
|  253       0 dm-0 1060 106 81200 800 2120 212 162400 1500 4 31000 61400 0 0 0 0
file proc/net/snmp
| Ip: Forwarding DefaultTTL InReceives InHdrErrors InAddrErrors ForwDatagrams InUnknownProtos InDiscards InDelivers OutRequests OutDiscards OutNoRoutes ReasmTimeout ReasmReqds ReasmOKs ReasmFails FragOKs FragFails FragCreates OutTransmits
| Ip: 2 64 1060 0 0 0 0 0 1060 2120 0 0 0 0 0 0 0 0 0 2120
| Icmp: InMsgs InErrors InCsumErrors InDestUnreachs
| Icmp: 70 0 7 190
| Tcp: RtoAlgorithm RtoMin RtoMax MaxConn ActiveOpens PassiveOpens AttemptFails EstabResets CurrEstab InSegs OutSegs RetransSegs InErrs
| Tcp: 1 200 120000 -1 70 10 1 1 7 1600 2900 60 0
| Udp: InDatagrams NoPorts InErrors OutDatagrams RcvbufErrors
| Udp: 160 0 0 320 0
file proc/net/dev
| Inter-|   Receive                                                |  Transmit
|  face |bytes    packets errs drop fifo frame compressed multicast|bytes    packets errs drop fifo colls carrier compressed
|     lo:     100       1    0    0    0     0          0         0      100       1    0    0    0     0       0          0
|   eth0: 1060000    5120   61    0    0     0          0         0   560000    4060  122    0    0    63       0          0
|   eth1:       0       0    0    0    0     0          0         0        0       0    0    0    0     0       0          0
process 1 comm=systemd utime=10 cmd=/sbin/init
process 2 comm=kthreadd flags=2129984
process 7 ppid=2 comm=kworker/0:1-ev flags=69238880 stime=160
process 50 ppid=1 comm=sh starttime=105000 utime=30 majflt=3 cutime=5 cmd=-sh
process 60 ppid=1 comm=hidden starttime=800 utime=5000 cmd=/opt/hidden
process 100 ppid=1 comm=make utime=6 cutime=2700 cstime=360 cminflt=1300 vsize=1048576 rss=3 cmd=/usr/bin/make -j 8
process 110 ppid=100 comm=cc1 state=Z starttime=108000 utime=20
at 1329897734 1134
at 1329897735 1135
file proc/stat
| cpu  4000 700 1100 8600 1000 40 590 0 0 0
| cpu0 4300 400 1100 14600 1000 40 590 0 0 0
| cpu2 9000 9000 9000 9000 9000 9000 9000 0 0 0
| intr 0
process 1 comm=systemd utime=10 cmd=/sbin/init
process 60 ppid=1 comm=hidden starttime=800 utime=5060 cmd=/opt/hidden
)";

TEST(RecordTest, TwoSamplesGiveTheRecordsOfTheirIntervals) {
  Story story(TWO_SAMPLES);
  const ProcessResult result = story.Record({"--count", "2"});
  EXPECT_EQ(result.exitStatus, 0);
  EXPECT_EQ(result.standardOutput, "data/qtxl_node_2012Feb22.dat_1\n");
  EXPECT_EQ(result.standardError,
            "ozmo_record: /private: Permission denied; the file system is not recorded\n");
  // What compilers used that have ended is make's: 17 seconds less the 5 that one was seen with before.
  EXPECT_EQ(story.Delivered("qtxl_node_2012Feb22.dat_1", "22-Feb-2012:08:00:00", "22-Feb-2012:09:00:00"),
            R"(22 08:02:00 of 60 s
  host 2 2048
  processor userTime 0.55 niceTime 0.05 systemTime 0.2 idleTime 0.1 waitTime 0.1
  processor cpuId 1 userTime 0.1 idleTime 0.9
  disk sda readRate 1 readMergedRate 0.1 readBytesRate 10240 writeRate 2 writeMergedRate 0.2 writeBytesRate 20480 ioRate 3 totalBytesRate 30720 busyFraction 0.5 queueLength 1 waitPerIo 5 servicePerIo 1.666667
  disk cciss/c0d0
  memory freeKb 512000 sharedKb 100000 buffersKb 64000 cacheKb 400000 pageInRate 1 pageOutRate 2 swapInRate 1 swapOutRate 2
  process /sbin/init me processId 1
  process [kthreadd] me processId 2
  process [kworker] me processId 7 processIdB 2 systemCpuSeconds 0.6
  process -sh me processId 50 processIdB 1 userCpuSeconds 0.35 majorFaults 3
  process /opt/hidden me processId 60 processIdB 1
  process /usr/bin/make -j 8 me processId 100 processIdB 1 userCpuSeconds 12.06 systemCpuSeconds 2 minorFaults 600 sizeVirtual 1024 sizeResident 12
  process cc1 me processId 110 processIdB 100 userCpuSeconds 0.2
  fileSystem / /dev/sda1 blockSize 4096 totalBlocks 1000 freeBlocks 400 availableBlocks 300 totalFiles 100 freeFiles 50
  fileSystem /tank/home tank/home blockSize 131072 totalBlocks 2000 freeBlocks 2000 availableBlocks 2000 totalFiles 9 freeFiles 8
  adapter lo
  adapter eth0 packetsInRate 2 bytesInRate 1000 errorsInRate 1 packetsOutRate 1 bytesOutRate 1000 errorsOutRate 2 collisionRate 1
  counters 0 2 1 64 2 1 8 1 9 2 19 1 21 3 45 1 46 200 47 120000 49 1 53 7 54 10 55 15 56 1 57 1 60 2
22 08:03:00 of 60 s
  host 1 2048
  processor idleTime 1
  disk sda
  disk cciss/c0d0
  disk sdb
  memory freeKb 512000 sharedKb 100000 buffersKb 64000 cacheKb 400000
  process /sbin/init me processId 1
  process /opt/hidden me processId 60 processIdB 1 userCpuSeconds 0.6
  fileSystem / /dev/sda1 blockSize 4096 totalBlocks 1000 freeBlocks 400 availableBlocks 300 totalFiles 100 freeFiles 50
  fileSystem /tank/home tank/home blockSize 131072 totalBlocks 2000 freeBlocks 2000 availableBlocks 2000 totalFiles 9 freeFiles 8
  adapter lo
  adapter eth0
  counters 0 2 1 64 45 1 46 200 47 120000 53 7
)");
}

// One processor that is half busy at all times, on a host without much of /proc, described at these seconds
// of the clocks.
std::string HalfBusy(const std::vector<std::pair<int64_t, int64_t>>& moments) {
  std::string text;
  for (const auto& [wall, steady] : moments) {
    const std::string ticks = std::to_string(steady * 50);
    const std::string modes = ticks + " 0 0 " + ticks + " 0 0 0 0 0 0";
    text += "at " + std::to_string(wall) + " " + std::to_string(steady) + R"(
file proc/cpuinfo
| processor : 0
| core id : 0
|
file proc/meminfo
| MemTotal: 2097152 kB
file proc/stat
| cpu )" + modes +
            "\n| cpu0 " + modes + "\n| intr 0\nprocess 2 comm=busy cmd=busy\n";
  }
  return text;
}

TEST(RecordTest, ClocksDaysAndDelaysLeaveTheFiguresRight) {
  Story story(HalfBusy({{1329955110, 1000},  // 22-Feb-2012:23:58:30
                        {1329955110, 1000},
                        {1329955170, 1060},
                        {1329955230, 1120},  // the next day
                        {1329958890, 1180},  // suspended for an hour
                        {1329958873, 1240},  // clock set back by 77 seconds
                        {1329958933, 1300},  // too near to the minute's end for a sample
                        {1329958935, 1302},
                        {1329959133, 1500},     // kept from running
                        {1329959175, 1542},     // too soon after it for a sample
                        {1329959235, 1602}}));  // and then comes SIGTERM
  const ProcessResult result = story.Record({});
  EXPECT_EQ(result.exitStatus, 0);
  EXPECT_EQ(result.standardOutput, "data/qtxl_node_2012Feb22.dat_1\ndata/qtxl_node_2012Feb23.dat_1\n");
  // Said once.
  EXPECT_EQ(result.standardError,
            R"(ozmo_record: /proc hides the processes of others from this user; they are not recorded
ozmo_record: /proc/vmstat: No such file or directory; no paging is recorded
ozmo_record: /proc/diskstats: No such file or directory; no disks are recorded
ozmo_record: /proc/net/snmp: No such file or directory; no protocols are recorded
ozmo_record: /proc/net/dev: No such file or directory; no adapters are recorded
ozmo_record: /proc/self/mountinfo: No such file or directory; no file systems are recorded
)");
  // The minute that came twice is recorded once.
  const std::string busy =
      "  host 1 2048\n  processor userTime 0.5 idleTime 0.5\n  memory\n  process busy me processId 2\n";
  EXPECT_EQ(story.Delivered("qtxl_node_2012Feb22.dat_1", "22-Feb-2012:23:00:00", "23-Feb-2012:02:00:00"),
            "23 00:00:00 of 60 s\n" + busy + "23 00:01:00 of 60 s\n" + busy + "23 01:01:00 of 60 s\n" +
                "23 01:02:00 of 60 s\n" + busy + "23 01:03:00 of 62 s\n" + busy + "23 01:06:18 of 198 s\n" +
                busy + "23 01:08:00 of 102 s\n" + busy);
}

// A file that may not grow is like a full disk.
TEST(RecordTest, KeepsWholeSamplesOnAFullDiskAndLeavesOtherFilesAlone) {
  std::vector<std::pair<int64_t, int64_t>> moments = {{1329897630, 1000}};  // 22-Feb-2012:08:00:30
  for (int minute = 0; minute < 20; ++minute)
    moments.emplace_back(1329897630 + minute * 60, 1000 + minute * 60);
  Story story(HalfBusy(moments));
  EXPECT_EQ(story.Record({}).exitStatus, 0);
  const std::string whole = ReadWholeFile(story.DataPath("qtxl_node_2012Feb22.dat_1"));
  const ProcessResult result =
      story.Record({}, "ulimit -f " + std::to_string(whole.size() / 512 - 1));  // in blocks of 512 bytes
  EXPECT_EQ(result.exitStatus, 1);
  EXPECT_THAT(result.standardError, ::testing::EndsWith("dat_2: File too large\n"));
  EXPECT_EQ(ReadWholeFile(story.DataPath("qtxl_node_2012Feb22.dat_1")), whole);

  const std::string begin = "22-Feb-2012:08:00:00";
  const std::string end = "22-Feb-2012:09:00:00";
  const std::string all = story.Delivered("qtxl_node_2012Feb22.dat_1", begin, end);
  std::filesystem::rename(story.DataPath("qtxl_node_2012Feb22.dat_2"),
                          story.DataPath("qtxl_node_2012Feb22.dat_1"));
  const std::string kept = story.Delivered("qtxl_node_2012Feb22.dat_1", begin, end);
  EXPECT_THAT(all, ::testing::StartsWith(kept));
  EXPECT_GT(kept.size(), all.size() / 2);
  EXPECT_LT(kept.size(), all.size());
}

// A mount whose name forges a line and one that never responds, by a user who lets everybody read.
TEST(RecordTest, RecordsOnWhereTheHostIsHostile) {
  Story story(HalfBusy({{1329897630, 1000}, {1329897630, 1000}, {1329897690, 1060}, {1329897750, 1120}}) +
              "file proc/self/mountinfo\n"
              "| 31 27 8:17 / /a\\012ozmo_record:\\040forged rw - xfs /dev/sdb1 rw\n"
              "| 32 27 8:33 / /dying rw - ext4 /dev/sdc1 rw\n"
              "file statvfs\n"
              "| /dying 0\n");
  const ProcessResult result = story.Record({}, "umask 0");
  EXPECT_EQ(result.exitStatus, 0);
  EXPECT_THAT(
      result.standardError,
      ::testing::AllOf(::testing::HasSubstr("/dying: doesn't respond; the file system is not recorded\n"),
                       ::testing::HasSubstr("/a?ozmo_record: forged: No such file or directory;")));
  using std::filesystem::perms;
  EXPECT_EQ(std::filesystem::status(story.DataPath("qtxl_node_2012Feb22.dat_1")).permissions(), perms{0640});
  EXPECT_EQ(std::filesystem::status(story.DataPath(".qtxl_node.lock")).permissions(), perms{0600});
}

// Nanoseconds since 1970 would not fit into 64 bits, nor the time into a file's 32.
TEST(RecordTest, EndsWhereTheClockIsTooLate) {
  Story story(HalfBusy({{10000000000, 1000}, {10000000000, 1000}, {10000000060, 1060}}));
  const ProcessResult result = story.Record({});
  EXPECT_EQ(result.exitStatus, 1);
  EXPECT_THAT(result.standardError, ::testing::HasSubstr("the clock is past the year 2037"));
}

struct Refusal {
  const char* setting;
  std::vector<std::string> options;
  int status;
  const char* error;
};

TEST(RecordTest, RefusesInOneLine) {
  const Refusal refusals[] = {
      {"rmdir data", {}, 1, "can't write in data: No such file or directory"},
      {"rmdir data; touch data", {}, 1, "can't write in data: Not a directory"},
      {"true", {"--node", "a/b"}, 1, "node name a/b has a slash, which no file name can have"},
      {"exec 9> data/.qtxl_node.lock && flock -n 9", {}, 1, "data: another recorder of node is writing here"},
      {"ln -s made data/.qtxl_node.lock",
       {},
       1,
       "data/.qtxl_node.lock is no plain file of this user alone, and can't be the lock"},
      {"true",
       {"--node", "qtxs_x"},
       1,
       "data/qtxl_qtxs_x would be read as a file of Solaris, since its path has \"qtxs_\""},
      {"true", {"--node", "a\xc2\x9b"}, 1, "node name has a control character"},
      {"rm host/*/proc/stat", {}, 1, "/proc/stat: No such file or directory"},
      {"true", {"--interval", "0"}, 2, "--interval takes a whole number from 1 to 86400, and not \"0\""},
      {"true", {"--keep", "0"}, 2, "--keep takes a whole number from 1 to 36500, and not \"0\""},
      {"true", {"--count"}, 2, "--count takes a value"},
      {"true", {"-count", "1"}, 2, "unknown option -count; did you mean --count?"},
      {"true",
       {"--until", "30-Feb-2040:08:00:00"},
       2,
       "--until takes a time as 2012-02-22T08:00 or 22-Feb-2012:08:00:00, and not \"30-Feb-2040:08:00:00\""},
      {"true", {"--until", "2012-02-22T07:00"}, 2, "--until 2012-02-22T07:00 is past"},
      {"true", {"--until", "2012-02-22T08:01"}, 1, "--until comes before the end of the first sample"},
      {"true", {"--until", "2040-02-22 08:00", "--count", "1"}, 2, "--count and --until can't both be given"},
      {"true", {"more"}, 2, "a directory is wanted, and nothing else"},
  };
  for (const Refusal& refusal : refusals) {
    SCOPED_TRACE(refusal.error);
    Story story(HalfBusy({{1329897630, 1000}, {1329897630, 1000}}));
    const ProcessResult result = story.Record(refusal.options, refusal.setting);
    EXPECT_EQ(result.exitStatus, refusal.status);
    const std::string more = refusal.status == 2 ? "ozmo_record --help says more.\n" : "";
    EXPECT_EQ(result.standardError, "ozmo_record: " + std::string(refusal.error) + "\n" + more);
    EXPECT_FALSE(std::filesystem::exists(story.DataPath("qtxl_node_2012Feb22.dat_1")));
  }
}

}  // namespace
}  // namespace ozmo::testing
