// Where the load or flow at a place comes from, in every run: a row a source or a kind of them, a block of
// columns a run.
#pragma once

#include "analysis/Sources.h"
#include "explore/rows/RowSource.h"
#include "explore/rows/TableScope.h"

#include <span>
#include <vector>

namespace korvel {

enum class SourcesBy { source, kind };

struct SourcesChoice {
    int determinand = 0; // by number; 0 is the flow
    SourcesBy by = SourcesBy::source;
    std::optional<ExplorePlace> at; // none: the mouth with the largest load in the base
};

class SourceRows : public RowSource {
  public:
    SourceRows(const TableScope& scope, const SourcesChoice& choice);

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    Cell cell(int row, int column) const override;
    double bar(int row, int column) const override;
    std::optional<ExplorePlace> place(int row, int column) const override;
    std::optional<int> series(int row, int column) const override;
    std::vector<int> rowsAt(const ExplorePlace& place) const override;
    std::string whyEmpty() const override { return m_refusal; }

    // What is shown, where, and how far it can be trusted; "" where nothing is.
    const std::string& heading() const { return m_heading; }

  private:
    struct Figures {
        std::optional<double> load, arrives, share;
    };
    struct Row {
        std::string kind, name;
        int reach = 0; // 0 of a kind
        std::optional<double> distance;
        std::vector<Figures> runs;
    };

    void find(const TableScope& scope, const SourcesChoice& choice);
    std::optional<SourcePlace> placeFor(const TableScope& scope, const SourcesChoice& choice);
    void takeSources();
    void takeLosses();
    void takeKinds();
    // A row for each source of the runs.
    void takeCompared(const std::vector<std::span<const Contribution>>& runs);
    std::string headingFor(const TableScope& scope) const;
    std::string loadsText() const;

    std::vector<StudyRun> m_runs;
    std::vector<LoadSources> m_sources; // by run
    int m_series = 0;
    int m_determinand = 0;
    bool m_byKind;
    double m_largestShare = 0;
    std::vector<Row> m_rows;
    std::string m_heading;
    std::string m_refusal;
};

} // namespace korvel
