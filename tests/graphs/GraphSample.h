// Results and choices for tests of the graph, made in memory.
#pragma once

#include "global/GraphHandOver.h"
#include "graphs/draw/GraphInputs.h"
#include "results/ResultsDataSet.h"

#include <string>
#include <vector>

namespace korvel {

struct SamplePoint {
    int reach = 1;
    double distance = 0; // within its reach
    std::string label;
    int type = 0;
};

// One determinand unless more are added: series 0 flow, 1..n concentrations, n+1..2n loads.
class GraphSample {
  public:
    GraphSample() { setDeterminands({"BOD"}); }

    ResultsDataSet results;
    GraphHandOver graph;
    GraphView view;
    SharedConstants constants;
    DrawingArea area{9600, 6780, 9600};

    void setDeterminands(const std::vector<std::string>& names);
    void addReach(int number, const std::string& name, double length);
    int addPoint(const SamplePoint& point);
    void set(ValueField field, int series, const std::vector<double>& values, int slot = 0, int level = 0);
    void set(ValueField field, int series, double everywhere, int slot = 0, int level = 0);

    // The slot is as it was never loaded.
    void unload(int slot);

    // What the set-up form does for display mode 1 and 2.
    void plotSeries(const std::vector<int>& reaches, const std::vector<int>& series);
    void plotReaches(const std::vector<int>& reaches, int series);
    void labelAllTypes();
    // The factors of a work area of that many pixels, which the drawing area fills.
    void useArea(int width, int height);

    GraphInputs inputs() const { return {results, graph, view, constants, area, "01/02/2026"}; }

  private:
    double takePoints(int reach, int column, double offset);
};

} // namespace korvel
