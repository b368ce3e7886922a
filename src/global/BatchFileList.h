// The files of the last batch run, in order. Written by the batch run, kept while the program runs.
#pragma once

#include "basic/CheckedArray.h"

#include <string>

namespace korvel {

inline constexpr int MaxBatchFiles = 300;

struct BatchFileList {
    CheckedArray<std::string, 0, MaxBatchFiles> BatchFiles; // from 1; entry 0 is never filled
    int batchFileCount = 0;
};

} // namespace korvel
