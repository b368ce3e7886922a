// Runs other programs and tells what they cost.
#pragma once

#include "Contest.h"

#include <string>
#include <vector>

namespace korvel {

struct ProgramCost {
    Cost cost;
    double peakBytes = 0;
};

// The program and its arguments; what it prints is dropped. Ends this one where the program fails. The peak
// counts the memory of this program too, so that this one must stay small.
ProgramCost run(const std::vector<std::string>& command);

// A virtual machine takes idle memory back and gives it anew slowly. A process of its own touches as much as
// a program that reads a large results file and ends, so that the machine has it at hand, in large pages, and
// this one stays small.
void warmMemory();

} // namespace korvel
