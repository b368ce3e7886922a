// The numbers of a river for the page's script, as JSON.
#pragma once

#include "panels/StudyPath.h"
#include "publish/PageStudy.h"
#include "tables/OutputBytes.h"

#include <cstddef>
#include <vector>

namespace korvel {

// Of the places of the way those that are kept. Numbers are in their shortest exact form, null where a run
// has no point; nothing in it can end the element that it stands in.
void writeRiverData(OutputBytes& out, const PageStudy& study, const StudyPath& path,
                    const std::vector<std::size_t>& kept);

// Runs, their lines, and series.
void writeSetupData(OutputBytes& out, const PageStudy& study);

} // namespace korvel
