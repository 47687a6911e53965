// A recording of an older version, in the form that the host's program reads.
#pragma once

#include <string>
#include <vector>

#include "runtime/stream.h"

namespace ozmo::import {

// Runs a program that prints the converted recording, without a shell and without its messages: those come
// when what couldn't be converted is read. Null where it fails, and where it prints nothing since the
// recording needs no conversion. The copy has no name, so that it goes at any end of the process.
Stream ConvertedCopy(const std::vector<std::string>& command);

// By which path other programs find it, as long as this process has it open.
std::string PathOf(const Stream& copy);

}  // namespace ozmo::import
