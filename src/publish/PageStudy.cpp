#include "publish/PageStudy.h"

#include "basic/Text.h"
#include "publish/PageTable.h"
#include "publish/PageText.h"

#include <algorithm>

namespace korvel {

namespace {

Network networkWithoutCircles(const StudyRun& run) {
    Network network = networkOf(*run.file);
    if (const auto circles = circlesIn(network, *run.file)) throw PageRefused(run.name + ": " + *circles);
    return network;
}

std::set<int> shownDeterminands(const ResultsDataSet& results, const std::vector<int>& series) {
    std::set<int> shown;
    for (const int each : series)
        if (!isFlow(each)) shown.insert(results.determinandOf(each));
    return shown;
}

} // namespace

PageStudy::PageStudy(const Study& study, const PageRequest& request)
    : m_study(study), m_request(request), m_network(networkWithoutCircles(study.base())) {
    m_judging.determinands = shownDeterminands(base().results(), request.series);
    m_judging.lowIsBad = request.lowIsBad;
    for (std::size_t k = 0; k < study.runs().size(); ++k) {
        if (k > 0) m_compared.push_back(korvel::compared(base(), study.runs()[k]));
        judge(study.runs()[k]);
        tellProgress(0.4 * static_cast<double>(k + 1) / static_cast<double>(study.runs().size()));
    }
}

void PageStudy::judge(const StudyRun& run) {
    PageRun judged;
    judged.run = run;
    JudgedRun asked{run, {}};
    if (!m_runs.empty()) asked.base = base();
    judged.compliance = complianceRows(asked, m_judging);
    judged.overall = overallRows(run, m_judging, judged.compliance);
    judged.sums = complianceSums(run, m_judging, judged.compliance);
    judged.stations = firstStations(run, m_judging, mostPageRows);
    if (!m_runs.empty()) {
        ChangeRequest changes;
        changes.series = m_request.series;
        judged.changes = changeRows(m_compared.back(), groupsByReach(*base().file, {}), changes);
    }
    m_runs.push_back(std::move(judged));
}

std::string PageStudy::title() const {
    const std::string own = trim(base().results().resultsTitle);
    const std::string& typed = m_request.title;
    const std::string title = typed.empty() ? own : typed;
    return title.empty() ? "Results of " + pageText(base().name) : pageText(title);
}

std::string PageStudy::seriesTitle(int series) const {
    const SeriesName name = base().results().nameOf(series);
    return pageText(trim(name.title)) + (isLoad(base().results(), series) ? " load" : "");
}

std::string PageStudy::reachTitle(int number) const {
    const std::string name = pageText(base().file->reachName(number));
    return std::to_string(number) + (name.empty() ? "" : " " + name);
}

void PageStudy::tellProgress(double share) const {
    if (m_request.progress && !m_request.progress(share)) throw PageCancelled();
}

namespace {

PageSources sourcesAt(const PageStudy& study, int series, const std::string& what) {
    PageSources sources;
    sources.series = series;
    sources.what = what;
    const auto mouth = largestMouth(*study.base().file, study.network(), series);
    if (!mouth) {
        sources.refusal = "There are no reaches.";
        return sources;
    }
    sources.reach = mouth->reach;
    try {
        for (const PageRun& run : study.runs())
            sources.runs.push_back(sourcesOf(*run.run.file, networkOf(*run.run.file), series, *mouth));
    } catch (const SourcesRefused& refused) {
        const StudyRun& run = study.runs()[sources.runs.size()].run;
        sources.refusal = pageText(run.name) + ": " + pageText(refused.what()) + ".";
    }
    return sources;
}

} // namespace

std::vector<PageSources> pageSources(const PageStudy& study) {
    const ResultsDataSet& results = study.base().results();
    std::vector<PageSources> all;
    if (std::ranges::find(study.request().series, 0) != study.request().series.end())
        all.push_back(sourcesAt(study, 0, "Flow"));
    for (const int determinand : study.judging().determinands)
        all.push_back(
            sourcesAt(study, results.loadOf(determinand), pageText(determinandName(results, determinand))));
    return all;
}

} // namespace korvel
