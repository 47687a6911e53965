// The table of a fleet: its columns, and the cells of a host and day.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "programs/report/summary.h"

namespace ozmo::fleet {

// A host and day.
struct Host {
  report::Summary summary;
  std::string page;  // the path of its own page; empty: it has none
};

enum class CellKind { TEXT, COUNT, NUMBER, TIME };

struct Column {
  std::string key;    // the head of the table as text: "disk_p95"
  std::string title;  // for people, below that of the group: "p95"
  std::string group;  // "Disk utilization, %"; empty: it belongs to none
  CellKind kind = CellKind::TEXT;
  bool isShown = true;  // by the page, until others are chosen
};

// "host" is first.
std::vector<Column> Columns();

// The cells of a host, one for each column; empty where it lacks the figure. Of figures that a host has
// several of, such as its disks, those of the highest.
std::vector<std::string> CellsOf(const report::Summary& summary);

// The line of a figure that is shown for the host in the table: the disk that is busiest by its mean, or the
// like. Null where the host has none.
const report::SummaryLine* HighestLine(const report::Summary& summary, report::Figure figure);

// "2012-02-22", or both days of a longer span: "2012-02-22/2012-02-28".
std::string DayText(const report::Summary& summary);

// All hosts, columns separated by tabs, below a line of their keys. Names are as in a summary.
std::string TableText(const std::vector<Host>& hosts);

}  // namespace ozmo::fleet
