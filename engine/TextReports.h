// The engine's text outputs for people: tables of results, of loads, and of sources and sinks.
#pragma once

#include "engine/RiverModel.h"

#include <string>

namespace korvel::engine {

struct Report {
    const Catchment& catchment;
    const ModelResult& result;
    const GapFills& fills;
    std::string title;
};

std::string detailedOutput(const Report& report);        // .OUT
std::string loadReport(const Report& report);            // .LOD
std::string sourcesAndSinksReport(const Report& report); // .SUM

} // namespace korvel::engine
