// The file that a JPEG run draws its bitmap into. Its name is fixed, and it lies in a directory that
// everybody may write to: a file there that is a link, that belongs to someone else or that isn't a plain
// file is neither followed nor overwritten nor read.
#pragma once

#include "runtime/stream.h"

namespace ozmo {

// Null if the file can't be made or must not be touched.
Stream TempMapCreate();

// Null if the file isn't there or isn't ours.
Stream TempMapOpen();

// Returns 0, or -1 when the file could not be deleted.
int TempMapDelete();

}  // namespace ozmo
