#include "study/PointMatch.h"

#include "study/Spot.h"

#include <unordered_map>

namespace korvel {

namespace {

Spot spotOf(const ResultsDataSet& results, int point) {
    return {results.pointDistance[point], results.pointSide[point]};
}

// The points of one reach in both runs.
class ReachMatch {
  public:
    ReachMatch(const RunFile& base, const RunFile& run, PointMatch& match)
        : m_base(base.results), m_run(run.results), m_match(match) {}

    void match(std::span<const int> ofBase, std::span<const int> ofRun) {
        std::size_t same = 0;
        const std::size_t shorter = std::min(ofBase.size(), ofRun.size());
        for (; same < shorter && spotOf(m_base, ofBase[same]) == spotOf(m_run, ofRun[same]); ++same)
            pair(ofBase[same], ofRun[same]);
        matchBySpot(ofBase.subspan(same), ofRun.subspan(same));
    }

  private:
    void matchBySpot(std::span<const int> ofBase, std::span<const int> ofRun) {
        struct Waiting {
            std::vector<int> points;
            std::size_t next = 0;
        };
        std::unordered_map<Spot, Waiting, SpotHash> waiting;
        for (const int point : ofRun)
            waiting[spotOf(m_run, point)].points.push_back(point);
        for (const int point : ofBase) {
            const auto found = waiting.find(spotOf(m_base, point));
            if (found == waiting.end() || found->second.next == found->second.points.size()) continue;
            pair(point, found->second.points[found->second.next++]);
        }
    }

    void pair(int base, int run) {
        m_match.ofBase[static_cast<std::size_t>(base)] = run;
        m_match.ofRun[static_cast<std::size_t>(run)] = base;
    }

    const ResultsDataSet& m_base;
    const ResultsDataSet& m_run;
    PointMatch& m_match;
};

} // namespace

PointMatch matchPoints(const RunFile& base, const RunFile& run) {
    PointMatch match{std::vector<int>(static_cast<std::size_t>(base.results.pointCount) + 1),
                     std::vector<int>(static_cast<std::size_t>(run.results.pointCount) + 1)};
    ReachMatch reachMatch(base, run, match);
    for (int place = 0; place < base.reaches.count(); ++place) {
        const int other = run.reaches.placeOf(base.reaches.number(place));
        if (other >= 0) reachMatch.match(base.reaches.pointsOf(place), run.reaches.pointsOf(other));
    }
    return match;
}

} // namespace korvel
