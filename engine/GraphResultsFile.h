// The graph results file (.SGR): everything that the graphs and reports of the front end are drawn from.
#pragma once

#include "engine/RiverModel.h"

#include <string>

namespace korvel::engine {

std::string graphResultsText(const Catchment& catchment, const ModelResult& result, const std::string& title);

} // namespace korvel::engine
