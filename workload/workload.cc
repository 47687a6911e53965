#include "workload/workload.h"

namespace ozmo {
namespace {

struct DefaultClass {
  const char* name;
  PatternList WorkloadClass::*list;  // null: matches everything
  const char* patterns;
};

// The tabs and blanks before some items are part of them.
constexpr DefaultClass DEFAULT_CLASSES[] = {
    {"daemons", &WorkloadClass::command,
     "*routed*,*nfsiod*,*osknmd*,*portmap*,*inetd*,*snmpd*,*_mib*,/usr/sbin/dna*,\t/usr/sbin/dns*,"
     "rpc.rquotad, *syslogd*,*binlogd*,*mountd*,/usr/sbin/cron,\t/sbin/init*,/usr/lbin/lpd*,/sbin/update,"
     "/sbin/vold*,bootpd,*pmgrd*,\tinit,dna*,dns*,kloadsrv, knblink,nfsd,syslogd,binlogd,osaknmd,joind,"
     "/usr/sbin/joind,telnetd*,rlogind,lpd"},
    {"cde", &WorkloadClass::command, "*dtscreen*,*dtexec*,*dtwm*"},
    {"dc", &WorkloadClass::command, "*vmrunix*,*psdc*"},
    {"root", &WorkloadClass::uid, "root"},
    {"others", nullptr, ""},
};

}  // namespace

void WorkloadDefaults(WorkloadClassList& list) {
  list.classes.clear();
  // "others" takes the rest by being last and without patterns, not as catch-all class.
  list.catchAllClass.reset();
  for (const DefaultClass& row : DEFAULT_CLASSES) {
    WorkloadClass& made = list.classes.emplace_back();
    made.name = row.name;
    if (row.list != nullptr) {
      (made.*row.list).Append(row.patterns);
    } else {
      made.catchAll = 1;
    }
  }
}

}  // namespace ozmo
