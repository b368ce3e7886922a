#include "engine/GraphResultsFile.h"

#include "basic/LineOutput.h"
#include "engine/NumberText.h"

#include <initializer_list>

namespace korvel::engine {

namespace {

std::string joined(std::initializer_list<double> values) {
    std::string text;
    for (const double value : values)
        text += (text.empty() ? "" : ", ") + significant(value);
    return text;
}

std::string caption(const std::string& text) {
    return '"' + text + '"';
}

std::string reachLine(const Reach& reach) {
    return rightAligned(std::to_string(reach.number), 4) + ' ' + padded(reach.name, 16) + ' ' +
           rightAligned(fixed(reach.length, 3), 10) + ' ' + rightAligned(std::to_string(reach.next), 4);
}

std::string sideText(Side side) {
    return side == Side::upstream ? "U/S " : side == Side::downstream ? "D/S " : "";
}

// A label ends with a blank and two digits of its type, which readers drop.
std::string labelText(const Point& point) {
    const std::string type = std::to_string(static_cast<int>(point.type));
    return caption(sideText(point.side) + point.label + ' ' + (type.size() < 2 ? "0" : "") + type);
}

std::string pointLine(const Point& point) {
    const int feature = point.feature == nullptr ? 0 : point.feature->number;
    return std::to_string(point.reach->number) + ", " + fixed(point.distance, 3) + ", " + labelText(point) +
           ", " + std::to_string(feature) + ", " + std::to_string(static_cast<int>(point.type));
}

class Writer {
  public:
    Writer(const Catchment& catchment, LineOutput& output) : m_catchment(catchment), m_output(output) {}

    void header(const std::string& title) {
        m_output.line(title);
        m_output.line(std::to_string(m_catchment.settings.percentileMode));
        m_output.line(std::to_string(m_catchment.determinands.size()));
        for (const Determinand& item : m_catchment.determinands)
            m_output.line(std::to_string(item.type) + ", " + caption(item.name) + ", " +
                          std::to_string(static_cast<int>(item.statistic)));
        m_output.line(std::to_string(m_catchment.reaches.size()));
        for (const Reach& reach : m_catchment.reaches)
            m_output.line(reachLine(reach));
    }

    void point(const PointResult& result) {
        const Summary& flow = result.flow;
        const Observed observed = observedAt(result.point, 0);
        m_output.line(pointLine(result.point));
        m_output.line("\"Flow\", " +
                      joined({flow.mean, flow.percentiles[0], flow.percentiles[1], flow.percentiles[2]}));
        m_output.line("\"Observed flow\", " + joined({observed.mean, observed.percentile90,
                                                      observed.percentile95, observed.percentile99}));
        for (std::size_t d = 0; d < m_catchment.determinands.size(); ++d)
            determinand(result, d);
    }

  private:
    void determinand(const PointResult& result, std::size_t d) {
        const Determinand& item = m_catchment.determinands[d];
        simulated(item.name + " mean", result.concentrations[d]);
        simulated(item.name + " load mean", result.loads[d]);
        observed(item.name + " observed", observedAt(result.point, item.number));
        observed(item.name + " load observed", {});
        const TargetValue target = m_catchment.target(result.point.reach->targets, item.number);
        m_output.line(caption(item.name + " target") + ", " + significant(target.value));
        m_output.line(caption(item.name + " load target") + ", 0");
    }

    void simulated(const std::string& name, const Summary& summary) {
        m_output.line(caption(name) + ", " +
                      joined({summary.mean, summary.meanLimits.lower, summary.meanLimits.upper}));
        for (std::size_t i = 0; i < summary.percentiles.size(); ++i)
            m_output.line(joined({summary.percentiles[i], summary.percentileLimits[i].lower,
                                  summary.percentileLimits[i].upper}));
    }

    void observed(const std::string& name, const Observed& values) {
        m_output.line(caption(name) + ", " + significant(values.mean));
        for (const double value : {values.percentile90, values.percentile95, values.percentile99})
            m_output.line(significant(value));
    }

    // Upstream sides carry none: a feature is observed once.
    Observed observedAt(const Point& point, int determinand) const {
        if (point.feature == nullptr || point.side == Side::upstream) return {};
        return m_catchment.observedAt(point.feature->number, determinand);
    }

    const Catchment& m_catchment;
    LineOutput& m_output;
};

} // namespace

std::string graphResultsText(const Catchment& catchment, const ModelResult& result,
                             const std::string& title) {
    LineOutput output;
    Writer writer(catchment, output);
    writer.header(title);
    for (const PointResult& point : result.points)
        writer.point(point);
    return output.text();
}

} // namespace korvel::engine
