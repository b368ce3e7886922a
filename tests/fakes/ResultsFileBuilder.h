// Writes results files for tests, one record a call:
//   ResultsFileBuilder().title("River").determinand(1, "BOD", 1).reach(1, "Upper Mill", 12.5).point(1, 0,
//   "Weir", 10)
// Every value of a point is a different number by its place (see value()), unless set() gives another;
// targets are 0.
#pragma once

#include "results/ValueStore.h"

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace korvel {

class ResultsFileBuilder {
  public:
    ResultsFileBuilder& title(std::string line);
    ResultsFileBuilder& mode(int percentileMode);
    ResultsFileBuilder& determinand(int type, const std::string& name, int statistic = 1);
    ResultsFileBuilder& reach(int number, const std::string& name, double length = 10, int next = 0);
    // The label ends with three more characters in the file, as the engine writes it.
    ResultsFileBuilder& point(int reach, double distance, const std::string& label, int featureType = 0);
    // `count` points of one reach, 0.1 apart.
    ResultsFileBuilder& points(int count, int reach = 1, int featureType = 0);
    // A value of the last point; `set` with a text writes it as it stands.
    ResultsFileBuilder& set(ValueField field, int series, double value, int level = 0);
    ResultsFileBuilder& set(ValueField field, int series, const std::string& value, int level = 0);
    ResultsFileBuilder& setAll(double value); // of the last point
    // What the counts say where they don't tell the truth, and words that replace a line.
    ResultsFileBuilder& determinandCount(std::string words);
    ResultsFileBuilder& reachCount(std::string words);
    ResultsFileBuilder& reachLine(std::string words);
    ResultsFileBuilder& pointLine(std::string words); // a point with this point line
    ResultsFileBuilder& lineEnd(std::string characters);

    std::string text() const;

    // The default of a point's value: point x 1000 + series x 10 + field + level / 4.
    static double value(int point, ValueField field, int series, int level = 0);

  private:
    using Place = std::tuple<ValueField, int, int>;
    struct Point {
        std::string line;
        std::map<Place, std::string> values;
        std::string all; // in place of the defaults
    };

    std::string number(const Point& point, int index, ValueField field, int series, int level) const;
    std::string pointText(int index) const;

    std::string m_title = "Test river";
    std::string m_mode = "0";
    std::vector<std::string> m_determinands;
    std::string m_determinandCount;
    std::vector<std::string> m_reaches;
    std::string m_reachCount;
    std::vector<Point> m_points;
    std::string m_lineEnd = "\r\n";
};

} // namespace korvel
