// What the parts of a page ask of its runs: judged and held against each other once.
#pragma once

#include "analysis/ChangeTable.h"
#include "analysis/ComplianceTable.h"
#include "analysis/Sources.h"
#include "publish/Page.h"

#include <string>
#include <vector>

namespace korvel {

struct PageRun {
    StudyRun run;
    std::vector<ComplianceRow> compliance; // reach by reach
    std::vector<OverallRow> overall;
    std::vector<ComplianceSumRow> sums; // of the whole, by determinand
    std::vector<ChangeRow> changes;     // by reach, mean values; none of the base
    Stations stations;                  // so many as a table of the page holds
};

class PageStudy {
  public:
    // Throws PageRefused.
    PageStudy(const Study& study, const PageRequest& request);

    const PageRequest& request() const { return m_request; }
    const StudyRun& base() const { return m_study.base(); }
    const std::vector<PageRun>& runs() const { return m_runs; }
    const Network& network() const { return m_network; } // of the base
    const ComplianceRequest& judging() const { return m_judging; }
    const std::vector<ComparedRun>& compared() const { return m_compared; } // each run but the base
    // Determinands of which a series is shown, and whose concentrations are judged in the base.
    std::vector<JudgedDeterminand> judged() const { return judgedBy(base(), m_judging); }

    std::string title() const;                 // UTF-8
    std::string seriesTitle(int series) const; // "BOD", "BOD load", "Flow"; UTF-8
    std::string reachTitle(int number) const;  // "7 Alder at Holme"; UTF-8

    void tellProgress(double share) const;

  private:
    void judge(const StudyRun& run);

    const Study& m_study;
    const PageRequest& m_request;
    Network m_network;
    ComplianceRequest m_judging;
    std::vector<ComparedRun> m_compared;
    std::vector<PageRun> m_runs;
};

// Where what is said of a load holds: the reach at the mouth with the largest load in the base, and what
// comes from where, run by run.
struct PageSources {
    int series = 0;
    std::string what;    // the determinand, or "Flow"; UTF-8
    std::string refusal; // why there is nothing to tell
    int reach = 0;
    std::vector<LoadSources> runs;
};

// Of the flow and of each determinand that is shown.
std::vector<PageSources> pageSources(const PageStudy& study);

} // namespace korvel
