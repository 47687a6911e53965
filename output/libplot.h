// libplot's C interface. Its header wants stdio.h before it, which an include sorter would undo.
#pragma once

// clang-format off
#include <stdio.h>
#include <plot.h>
// clang-format on
