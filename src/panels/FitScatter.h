// Observed against simulated: points in a square, with the line on which both are equal.
#pragma once

#include "analysis/Fit.h"
#include "drawing/Axis.h"
#include "drawing/Drawing.h"
#include "study/Study.h"

#include <optional>
#include <string>
#include <vector>

namespace korvel {

// What a run has of a series where it was observed.
struct FittedPoints {
    StudyRun run;
    int series = 0;
    Statistic statistic = Statistic::mean;
    std::vector<ObservedPoint> points;
};

struct ScatterPoint {
    DrawnPoint at;
    ObservedPoint observed;
};

struct ScatterColours {
    Rgb ink, faint, points;
};

struct FitScatter {
    std::string title;
    Scale across, up; // observed, simulated; the same values
    std::vector<AxisTick> ticksAcross, ticksUp;
    std::vector<ScatterPoint> points;
    StudyRun run;
    Font font;
    bool isNamedBeside = false; // the axis across has its name at its end, else under it

    // The point nearest to a place of the drawing, none further away than `reach`.
    const ScatterPoint* pointAt(const DrawnPoint& place, double reach) const;
};

// In twips; from 0, or logarithmic where that is chosen and all is above 0.
FitScatter layOutScatter(const FittedPoints& points, double width, double height, ScaleKind kind,
                         const TextMetrics& metrics, const Font& font = {});

// `marked`: the point under the pointer, or null.
Drawing drawScatter(const FitScatter& scatter, double width, double height, const ScatterPoint* marked,
                    const ScatterColours& colours, const TextMetrics& metrics);

} // namespace korvel
