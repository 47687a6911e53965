#include "programs/report/entry.h"

int main(int argc, char* argv[]) { return ozmo::report::ReportEntry(argc, argv); }
