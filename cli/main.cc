#include "cli/entry.h"

int main(int argc, char* argv[]) { return ozmo::RunEntry(argc, argv); }
