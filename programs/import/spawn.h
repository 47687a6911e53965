// Programs of others, run without a shell.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace ozmo::import {

// Where a program's messages go: to standard error, or nowhere.
enum class Messages { SHOWN, DROPPED };

// Starts a program that is found by PATH, with `output` as its standard output and nothing on its standard
// input. Returns 0, or errno's number.
int Spawn(const std::vector<std::string>& words, int output, Messages messages, pid_t& program);

}  // namespace ozmo::import
