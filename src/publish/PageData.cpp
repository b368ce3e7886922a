#include "publish/PageData.h"

#include "basic/Text.h"
#include "panels/RunStyle.h"
#include "publish/PagePicture.h"
#include "publish/PageText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <optional>

namespace korvel {

namespace {

// Lists and objects, with the commas between their parts.
class DataWriter {
  public:
    explicit DataWriter(OutputBytes& out) : m_out(out) {}

    void begin(char bracket) {
        separate();
        m_out.append(bracket);
        m_needsComma = false;
    }
    void end(char bracket) {
        m_out.append(bracket);
        m_needsComma = true;
    }
    void key(std::string_view name) {
        separate();
        m_out.append(jsonOf(name));
        m_out.append(':');
        m_needsComma = false;
    }
    void number(double value) {
        separate();
        if (std::isfinite(value))
            m_out.appendNumber(value);
        else
            m_out.append("null");
    }
    void whole(std::size_t value) { number(static_cast<double>(value)); }
    void null() {
        separate();
        m_out.append("null");
    }
    void text(std::string_view utf8) {
        separate();
        m_out.append(jsonOf(utf8));
    }
    // Numbers of one text, with blanks between them.
    void column(const std::vector<double>& values, const std::vector<double>* like) {
        separate();
        m_out.append('"');
        for (std::size_t k = 0; k < values.size();) {
            if (k > 0) m_out.append(' ');
            const std::size_t alike = like ? countAlike(values, *like, k) : 0;
            if (alike > 0)
                sameAgain(alike);
            else if (!std::isnan(values[k]))
                m_out.appendNumber(values[k]);
            k += std::max<std::size_t>(1, alike);
        }
        m_out.append('"');
    }

  private:
    static std::size_t countAlike(const std::vector<double>& values, const std::vector<double>& like,
                                  std::size_t from) {
        std::size_t end = from;
        while (end < values.size() &&
               (values[end] == like[end] || (std::isnan(values[end]) && std::isnan(like[end]))))
            ++end;
        return end - from;
    }
    void sameAgain(std::size_t times) {
        m_out.append('=');
        if (times > 1) m_out.append(std::to_string(times));
    }
    void separate() {
        if (m_needsComma) m_out.append(',');
        m_needsComma = true;
    }

    OutputBytes& m_out;
    bool m_needsComma = false;
};

// What one run has along a way, at the places that are kept. Of what is the same as in the base only that is
// told.
class RunAlong {
  public:
    using Columns = std::map<std::string, std::vector<double>>;

    RunAlong(DataWriter& data, const StudyPath& path, const std::vector<std::size_t>& kept, std::size_t run,
             Columns& ofBase)
        : m_data(data), m_points(path.pointOf[run]), m_kept(kept), m_isBase(run == 0), m_ofBase(ofBase) {}

    enum class Limits { taken, left };

    void write(const SeriesValues& values, const std::string& prefix, Limits limits) const {
        column(prefix, [&](int point) { return values.value[SeriesValues::at(point)]; });
        if (limits == Limits::taken && hasLimits(values)) {
            column(prefix + "l",
                   [&](int point) { return areTwo(values, point) ? values.low(point) : nothing; });
            column(prefix + "h",
                   [&](int point) { return areTwo(values, point) ? values.high(point) : nothing; });
        }
        sparse(prefix + "o", [&](int point) -> std::optional<double> {
            if (!values.isObserved(point)) return std::nullopt;
            return values.observed[SeriesValues::at(point)];
        });
    }
    // Where the target becomes another one; null where it ends.
    void writeTargets(const SeriesValues& values) const {
        m_data.key("t");
        m_data.begin('[');
        double before = 0;
        for (std::size_t k = 0; k < m_kept.size(); ++k) {
            const int point = m_points[m_kept[k]];
            if (point == 0) continue;
            const double target = values.hasTarget(point) ? values.target[SeriesValues::at(point)] : 0;
            if (target == before) continue;
            before = target;
            m_data.begin('[');
            m_data.whole(k);
            target > 0 ? m_data.number(target) : m_data.null();
            m_data.end(']');
        }
        m_data.end(']');
    }

  private:
    static constexpr double nothing = std::numeric_limits<double>::quiet_NaN();

    static bool areTwo(const SeriesValues& values, int point) {
        return values.hasLimits() && values.low(point) < values.high(point);
    }
    bool hasLimits(const SeriesValues& values) const {
        return std::ranges::any_of(m_kept, [&](std::size_t place) {
            return m_points[place] != 0 && areTwo(values, m_points[place]);
        });
    }
    template <typename Value>
    void column(const std::string& name, const Value& value) const {
        std::vector<double> values;
        values.reserve(m_kept.size());
        for (const std::size_t place : m_kept) {
            const double found = m_points[place] == 0 ? nothing : value(m_points[place]);
            values.push_back(std::isfinite(found) ? found : nothing);
        }
        const auto like = m_ofBase.find(name);
        m_data.key(name);
        m_data.column(values, like == m_ofBase.end() ? nullptr : &like->second);
        if (m_isBase) m_ofBase[name] = std::move(values);
    }
    // Pairs of place and value.
    template <typename Value>
    void sparse(const std::string& name, const Value& value) const {
        m_data.key(name);
        m_data.begin('[');
        for (std::size_t k = 0; k < m_kept.size(); ++k) {
            const int point = m_points[m_kept[k]];
            const std::optional<double> found = point == 0 ? std::nullopt : value(point);
            if (!found) continue;
            m_data.begin('[');
            m_data.whole(k);
            m_data.number(*found);
            m_data.end(']');
        }
        m_data.end(']');
    }

    DataWriter& m_data;
    const std::vector<int>& m_points;
    const std::vector<std::size_t>& m_kept;
    bool m_isBase;
    Columns& m_ofBase;
};

// The statistic by which a series is judged beside its mean; nothing where that is all.
std::optional<Statistic> otherStatistic(const PageStudy& study, const ResultsDataSet& results, int series) {
    if (results.kindOf(series) != SeriesKind::concentration) return std::nullopt;
    for (const JudgedDeterminand& each : judgedDeterminands(results, study.request().lowIsBad))
        if (each.number == series && each.statistic != Statistic::mean) return each.statistic;
    return std::nullopt;
}

void writeSeries(DataWriter& data, const PageStudy& study, const StudyPath& path,
                 const std::vector<std::size_t>& kept, int series) {
    RunAlong::Columns ofBase;
    data.begin('[');
    for (std::size_t run = 0; run < study.runs().size(); ++run) {
        const ResultsDataSet& results = study.runs()[run].run.results();
        const RunAlong along(data, path, kept, run, ofBase);
        data.begin('{');
        // Limits are told of what is shown first: what is judged, and the mean where nothing else is.
        const auto other = otherStatistic(study, results, series);
        const bool isJudged = results.kindOf(series) == SeriesKind::concentration;
        along.write(seriesValues(results, series, Statistic::mean), "m",
                    other ? RunAlong::Limits::left : RunAlong::Limits::taken);
        if (other) along.write(seriesValues(results, series, *other), "j", RunAlong::Limits::taken);
        if (isJudged) along.writeTargets(seriesValues(results, series, Statistic::mean));
        data.end('}');
    }
    data.end(']');
}

std::string labelOf(const PageStudy& study, const StudyPath& path, std::size_t place) {
    const PathPlace& at = path.places[place];
    const ResultsDataSet& results = study.runs()[at.run].run.results();
    const std::string side = pageText(results.pointSide[at.point]);
    const std::string label = pageText(trim(results.pointLabel[at.point]));
    return label.empty() || side.empty() ? label : label + ", " + side;
}

void writePlaces(DataWriter& data, const PageStudy& study, const StudyPath& path,
                 const std::vector<std::size_t>& kept) {
    data.key("km");
    data.begin('[');
    for (const std::size_t place : kept)
        data.number(path.places[place].km);
    data.end(']');
    data.key("names");
    data.begin('[');
    for (std::size_t k = 0; k < kept.size(); ++k) {
        const std::string label = labelOf(study, path, kept[k]);
        if (label.empty()) continue;
        data.begin('[');
        data.whole(k);
        data.text(label);
        data.end(']');
    }
    data.end(']');
}

void writeReaches(DataWriter& data, const PageStudy& study, const StudyPath& path,
                  const std::vector<std::size_t>& kept) {
    data.key("reaches");
    data.begin('[');
    for (std::size_t reach = 0; reach < path.reaches.size(); ++reach) {
        const auto isIn = [&](std::size_t place) { return path.places[place].reach >= reach; };
        data.begin('[');
        data.number(path.reaches[reach].from);
        data.text(study.reachTitle(path.reaches[reach].number));
        data.whole(static_cast<std::size_t>(std::ranges::find_if(kept, isIn) - kept.begin()));
        data.end(']');
    }
    data.end(']');
}

} // namespace

void writeRiverData(OutputBytes& out, const PageStudy& study, const StudyPath& path,
                    const std::vector<std::size_t>& kept) {
    DataWriter data(out);
    data.begin('{');
    writePlaces(data, study, path, kept);
    writeReaches(data, study, path, kept);
    data.key("series");
    data.begin('[');
    for (const int series : study.request().series)
        writeSeries(data, study, path, kept, series);
    data.end(']');
    data.end('}');
}

void writeSetupData(OutputBytes& out, const PageStudy& study) {
    DataWriter data(out);
    data.begin('{');
    data.key("runs");
    data.begin('[');
    for (std::size_t run = 0; run < study.runs().size(); ++run) {
        data.begin('{');
        data.key("name");
        data.text(pageText(study.runs()[run].run.name));
        data.key("light");
        data.text(hexOf(runStyle(run, Theme::light).colour));
        data.key("dark");
        data.text(hexOf(runStyle(run, Theme::dark).colour));
        data.key("dash");
        data.text(dashesOf(runStyle(run, Theme::light).dash));
        data.end('}');
    }
    data.end(']');
    data.key("series");
    data.begin('[');
    const ResultsDataSet& base = study.base().results();
    for (const int series : study.request().series) {
        const auto other = otherStatistic(study, base, series);
        const bool isJudged = base.kindOf(series) == SeriesKind::concentration;
        data.begin('{');
        data.key("name");
        data.text(pageText(base.seriesNames[series]));
        data.key("title");
        data.text(study.seriesTitle(series));
        data.key("kind");
        data.text(isFlow(series) ? "flow" : isJudged ? "concentration" : "load");
        data.key("other");
        other ? data.text(wordsOf(*other)) : data.null();
        data.end('}');
    }
    data.end(']');
    data.end('}');
}

} // namespace korvel
