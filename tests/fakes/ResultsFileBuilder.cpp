#include "fakes/ResultsFileBuilder.h"

#include "basic/Numbers.h"

#include <iomanip>
#include <sstream>

namespace korvel {

namespace {

std::string inQuotes(const std::string& text) {
    return '"' + text + '"';
}

} // namespace

ResultsFileBuilder& ResultsFileBuilder::title(std::string line) {
    m_title = std::move(line);
    return *this;
}

ResultsFileBuilder& ResultsFileBuilder::mode(int percentileMode) {
    m_mode = std::to_string(percentileMode);
    return *this;
}

ResultsFileBuilder& ResultsFileBuilder::determinand(int type, const std::string& name, int statistic) {
    m_determinands.push_back(std::to_string(type) + "," + inQuotes(name) + "," + std::to_string(statistic));
    return *this;
}

ResultsFileBuilder& ResultsFileBuilder::reach(int number, const std::string& name, double length, int next) {
    std::ostringstream line;
    line << std::setw(4) << number << ' ' << std::left << std::setw(16) << name << ' ' << std::right
         << std::setw(10) << shortestNumber(length) << ' ' << std::setw(4) << next;
    return reachLine(line.str());
}

ResultsFileBuilder& ResultsFileBuilder::point(int reach, double distance, const std::string& label,
                                              int featureType) {
    return pointLine(std::to_string(reach) + "," + shortestNumber(distance) + "," + inQuotes(label + "   ") +
                     ",0," + std::to_string(featureType));
}

ResultsFileBuilder& ResultsFileBuilder::points(int count, int reach, int featureType) {
    for (int k = 0; k < count; ++k)
        point(reach, 0.1 * k, "P", featureType);
    return *this;
}

ResultsFileBuilder& ResultsFileBuilder::set(ValueField field, int series, double value, int level) {
    return set(field, series, shortestNumber(value), level);
}

ResultsFileBuilder& ResultsFileBuilder::set(ValueField field, int series, const std::string& value,
                                            int level) {
    m_points.back().values[{field, series, level}] = value;
    return *this;
}

ResultsFileBuilder& ResultsFileBuilder::setAll(double value) {
    m_points.back().all = shortestNumber(value);
    return *this;
}

ResultsFileBuilder& ResultsFileBuilder::determinandCount(std::string words) {
    m_determinandCount = std::move(words);
    return *this;
}

ResultsFileBuilder& ResultsFileBuilder::reachCount(std::string words) {
    m_reachCount = std::move(words);
    return *this;
}

ResultsFileBuilder& ResultsFileBuilder::reachLine(std::string words) {
    m_reaches.push_back(std::move(words));
    return *this;
}

ResultsFileBuilder& ResultsFileBuilder::pointLine(std::string words) {
    m_points.push_back({std::move(words), {}, {}});
    return *this;
}

ResultsFileBuilder& ResultsFileBuilder::lineEnd(std::string characters) {
    m_lineEnd = std::move(characters);
    return *this;
}

std::string ResultsFileBuilder::text() const {
    std::string text;
    const auto line = [&](const std::string& words) { text += words + m_lineEnd; };
    line(m_title);
    line(m_mode);
    line(m_determinandCount.empty() ? std::to_string(m_determinands.size()) : m_determinandCount);
    for (const std::string& determinand : m_determinands)
        line(determinand);
    line(m_reachCount.empty() ? std::to_string(m_reaches.size()) : m_reachCount);
    for (const std::string& reach : m_reaches)
        line(reach);
    for (int i = 1; i <= static_cast<int>(m_points.size()); ++i)
        text += pointText(i);
    return text;
}

double ResultsFileBuilder::value(int point, ValueField field, int series, int level) {
    if (field == ValueField::targetValue) return 0;
    return point * 1000 + series * 10 + static_cast<int>(field) + level * 0.25;
}

std::string ResultsFileBuilder::number(const Point& point, int index, ValueField field, int series,
                                       int level) const {
    const auto found = point.values.find({field, series, level});
    if (found != point.values.end()) return found->second;
    return point.all.empty() ? shortestNumber(value(index, field, series, level)) : point.all;
}

std::string ResultsFileBuilder::pointText(int index) const {
    using enum ValueField;
    const Point& point = m_points[static_cast<std::size_t>(index - 1)];
    const int n = static_cast<int>(m_determinands.size());
    const auto at = [&](ValueField field, int series, int level = 0) {
        return number(point, index, field, series, level);
    };
    const auto levels = [&](ValueField field, int series, const std::string& between) {
        return at(field, series, 0) + between + at(field, series, 1) + between + at(field, series, 2);
    };
    std::string text = point.line + m_lineEnd;
    text += "\"Flow\"," + at(meanValue, 0) + "," + levels(percentileValues, 0, ",") + m_lineEnd;
    text +=
        "\"Observed flow\"," + at(observedMean, 0) + "," + levels(observedPercentiles, 0, ",") + m_lineEnd;
    for (int d = 1; d <= n; ++d) {
        for (int c : {d, n + d}) {
            text += "\"Mean\"," + at(meanValue, c) + "," + at(meanLimit1, c) + "," + at(meanLimit2, c) +
                    m_lineEnd;
            for (int m : {0, 1, 2})
                text += at(percentileValues, c, m) + "," + at(percentileLimit1, c, m) + "," +
                        at(percentileLimit2, c, m) + m_lineEnd;
        }
        for (int c : {d, n + d})
            text += "\"Observed\"," + at(observedMean, c) + m_lineEnd +
                    levels(observedPercentiles, c, m_lineEnd) + m_lineEnd;
        for (int c : {d, n + d})
            text += "\"Target\"," + at(targetValue, c) + m_lineEnd;
    }
    return text;
}

} // namespace korvel
