// What part of the graph is seen, and how large its text is. Kept while the program runs.
#pragma once

namespace korvel {

struct GraphView {
    double ZoomFactor = 1;    // 0.25, 0.5, 1, 2 or 4; smaller is nearer
    double ScrollOffsetX = 0; // graph units
    double ScrollOffsetY = 0;
    int LargeTextMode = 1; // 1 large, 0 small text
};

} // namespace korvel
