// Workload classes: named groups of processes, so that a graph can show CPU use and process counts by group.
//
// The classes come from a class file in the working directory or, failing that, from a fixed list. They are
// loaded once and stay for the run. The series of a class belong to the graph records of the catalog.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/file_identity.h"
#include "workload/pattern_list.h"

namespace ozmo {

struct WorkloadClass {
  std::string name;
  // What a process must match, by attribute; an empty list takes anything. On the systems we read, `uid` is
  // held against the user name and `command` against the command; the other lists are for class files that
  // are shared with other tools.
  PatternList user;
  PatternList account;
  PatternList image;
  PatternList uic;
  PatternList procname;
  PatternList protocol;
  PatternList uid;
  PatternList gid;
  PatternList command;
  PatternList volume;
  PatternList node;
  int classType = 0;  // this and the next two: for other tools, no option reaches them
  double limit = 0.0;
  double growth = 0.0;
  int catchAll = 0;
};

struct WorkloadClassList {
  std::vector<WorkloadClass> classes;   // in file order, which is the order of matching
  std::optional<size_t> catchAllClass;  // position of the class that takes what no class matches
  std::optional<FileIdentity> file;     // that the classes were read from
  bool classesLoaded = false;           // by the builder: the list stays for the rest of the run
};

// Reads the class file at `path` into `list`, replacing what it holds. 1 if a class was made. A file that
// can't be read, or holds no class, gives 0 and an empty list; nothing is reported.
int WorkloadLoad(WorkloadClassList& list, const std::string& path);

// Makes the fixed list. Its last class takes the rest.
void WorkloadDefaults(WorkloadClassList& list);

}  // namespace ozmo
