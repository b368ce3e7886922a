#include "publish/Atlas.h"

#include "analysis/ChangeTable.h"
#include "basic/ShownText.h"
#include "basic/Text.h"
#include "panels/ProfileLayout.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>
#include <utility>

namespace korvel {

namespace {

constexpr std::size_t panelsAPage = 4;
constexpr std::size_t networksAPage = 2;
constexpr std::size_t mostRows = 5000;
constexpr std::size_t mostReachRows = 100; // reaches; with more, changes are told by river

std::map<int, std::string> reachNamesOf(const RunFile& run) {
    std::map<int, std::string> names;
    for (const int number : run.reaches.numbers())
        names[number] = shownName(run.reachName(number));
    return names;
}

// Concentrations as they are judged, so that targets stand beside what they are for; all else by the mean.
Statistic statisticOf(const ResultsDataSet& results, int series) {
    const bool concentration = results.kindOf(series) == SeriesKind::concentration;
    const bool judged = concentration && results.determinandTypes[series] != UnjudgedDeterminandType;
    return judged ? judgedStatistic(results, series) : Statistic::mean;
}

ProfileData dataOf(const Study& study, const std::shared_ptr<const StudyPath>& path,
                   const std::vector<int>& series, const std::set<int>& lowIsBad) {
    ProfileData data;
    for (const int each : series) {
        ProfileView view;
        view.series = {each};
        view.statistic = statisticOf(study.base().results(), each);
        view.lowIsBad = lowIsBad;
        ProfileData one = profileData(study, path, view);
        if (data.panels.empty())
            data = std::move(one);
        else
            data.panels.push_back(std::move(one.panels.front()));
    }
    return data;
}

// As evenly as may be.
std::vector<std::vector<int>> onPages(const std::vector<int>& series) {
    const std::size_t pages = (series.size() + panelsAPage - 1) / panelsAPage;
    std::vector<std::vector<int>> parts(pages);
    for (std::size_t k = 0; k < series.size(); ++k)
        parts[k * pages / series.size()].push_back(series[k]);
    return parts;
}

std::vector<AtlasColumn> complianceColumns(bool held) {
    std::vector<AtlasColumn> columns{{"reach", "Reach"},
                                     {"determinand", "Determinand"},
                                     {"statistic", "Statistic"},
                                     {"judged_length", "Judged km"},
                                     {"failing_length", "Failing km"},
                                     {"verdict", "Verdict"},
                                     {"confident_verdict", "Confident"},
                                     {"worst_feature", "Worst at"},
                                     {"worst_value", "Value"},
                                     {"worst_target", "Target"},
                                     {"worst_ratio", "Ratio"},
                                     {"needed", "Needed %", AtlasNumber::percent},
                                     {"headroom", "Headroom %", AtlasNumber::percent}};
    if (held) {
        columns.push_back({"change_verdict", "Change"});
        columns.push_back({"change_deteriorated", "Worse"});
    }
    return columns;
}

std::vector<AtlasColumn> sumColumns() {
    return {{"determinand", "Determinand"},
            {"statistic", "Statistic"},
            {"judged_length", "Judged km"},
            {"failing_length", "Failing km"},
            {"judged_points", "Judged points"},
            {"failing_points", "Failing"},
            {"sure_fails", "Sure fails"},
            {"sure_passes", "Sure passes"},
            {"unsure", "Unsure"},
            {"reaches_failing", "Reaches failing"},
            {"reaches_judged", "Reaches judged"}};
}

std::vector<AtlasColumn> changeColumns(const std::string& by) {
    return {{by, by == "reach" ? "Reach" : "River"},
            {"series", "Series"},
            {"base_mean", "Base"},
            {"run_mean", "Run"},
            {"change", "Change"},
            {"percent", "%", AtlasNumber::percent},
            {"largest_rise_value", "Largest rise"},
            {"largest_rise_feature", "at"},
            {"largest_fall_value", "Largest fall"},
            {"largest_fall_feature", "at"},
            {"clear_rises", "Clear rises"},
            {"clear_falls", "Clear falls"},
            {"points", "Points"}};
}

// Run by run.
AtlasTable sumsOfRuns(const Study& study, const ComplianceRequest& request,
                      const std::vector<RunJudgement>& judged) {
    AtlasTable all;
    for (std::size_t k = 0; k < study.runs().size(); ++k) {
        const StudyRun& run = study.runs()[k];
        const Table table = determinandTable(run, complianceSums(run, request, judged[k].rows));
        AtlasTable sums = atlasTable(table, {sumColumns()});
        for (std::vector<std::string>& row : sums.rows) {
            row.insert(row.begin(), shownLine(run.name));
            all.rows.push_back(std::move(row));
        }
        if (!all.headings.empty() && sums.rows.empty()) continue;
        all.headings = std::move(sums.headings);
        all.textColumns = std::move(sums.textColumns);
        all.headings.insert(all.headings.begin(), "Run");
        all.textColumns.insert(all.textColumns.begin(), true);
    }
    all.title = "Targets by determinand";
    return all;
}

} // namespace

Atlas::Atlas(Study study, AtlasRequest request, const TextMetrics& metrics)
    : m_study(std::move(study)),
      m_request(std::move(request)),
      m_metrics(metrics),
      m_network(networkOf(*m_study.base().file)) {
    m_request.title = shownLine(m_request.title);
    if (m_request.title.empty()) m_request.title = shownLine(trim(m_study.base().results().resultsTitle));
    if (m_request.title.empty()) m_request.title = shownLine(m_study.base().name);
    for (std::size_t run = 0; run < m_study.runs().size(); ++run) {
        m_judged.push_back(judgementOf(m_study, run, compliance()));
        m_findings.push_back(findingsOf(m_study, run, m_judged));
    }
    beginPart("Summary", 0);
    m_pages.push_back([this](AtlasSheet& sheet) { paintTitlePage(sheet); });
    planVerdicts();
    planRivers();
    planTables();
    planContents();
}

ComplianceRequest Atlas::compliance() const {
    ComplianceRequest request;
    for (int d = 1; d <= m_study.base().results().determinandCount; ++d)
        request.determinands.insert(d);
    request.lowIsBad = m_request.lowIsBad;
    return request;
}

// Two networks a page, where there are other runs than the base.
void Atlas::planVerdicts() {
    const std::size_t runs = m_study.runs().size();
    if (runs < 2 || m_network.hasCircles()) return;
    beginPart("Verdicts of each run", 0);
    for (std::size_t first = 0; first < runs; first += networksAPage) {
        const std::size_t end = std::min(first + networksAPage, runs);
        m_pages.push_back([this, first, end](AtlasSheet& sheet) {
            double top =
                sheet.head("Verdicts of each run", "with confidence, all judged determinands together");
            const double height = (AtlasSheet::bottom() - top) / networksAPage;
            for (std::size_t run = first; run < end; ++run, top += height) {
                sheet.text({0, top}, TextAlign::left, shownLine(m_study.runs()[run].name),
                           sheet.look().titleFont, sheet.look().text);
                const double words =
                    sheet.paragraph({0, top + 1.3 * sheet.line()}, atlasWidth, findingsInWords(run),
                                    sheet.look().font, sheet.look().text);
                paintNetwork(sheet, run, words, top + height - sheet.line());
            }
        });
    }
}

void Atlas::planRivers() {
    const RunFile& base = *m_study.base().file;
    if (m_network.hasCircles()) { // no rivers: its reaches, one by one
        beginPart("Reaches", 0);
        for (int place = 0; place < base.reaches.count(); ++place)
            planRiver({place}, shownLine(base.reachName(base.reaches.number(place))),
                      "reach " + std::to_string(base.reaches.number(place)));
        return;
    }
    beginPart("Rivers", 0);
    for (const River& river : m_network.rivers) {
        const std::string name = river.name.empty() ? "River without a name" : shownLine(river.name);
        std::string beside = shownDecimals(river.length, 1) + " km, " +
                             counted(static_cast<int>(river.reaches.size()), "reach", "reaches");
        if (river.joins >= 0) {
            const int number = base.reaches.number(river.joins);
            beside += ", runs into " + shownName(base.reachName(number)) + " (reach " +
                      std::to_string(number) + ")";
        }
        planRiver(river.reaches, name, beside);
    }
    if (m_parts.back().title == "Rivers") m_parts.pop_back(); // none has points
}

// A river without points has no page.
void Atlas::planRiver(const std::vector<int>& reaches, const std::string& title, const std::string& beside) {
    const auto path = std::make_shared<const StudyPath>(studyPath(m_study, reaches));
    if (path->places.empty()) return;
    beginPart(title, 1);
    const auto common = std::make_shared<ProfileCommon>();
    common->numbers = m_metrics.measure("0.00000", AtlasSheet(m_metrics).look().font).width;
    for (const std::vector<int>& series : onPages(m_request.series))
        m_pages.push_back([this, path, series, title, beside, common](AtlasSheet& sheet) {
            const double top = sheet.head(title, beside);
            const ProfileData data = dataOf(m_study, path, series, m_request.lowIsBad);
            ProfileLayout layout = layOutProfile(data, data.view, sheet.look(), atlasWidth,
                                                 AtlasSheet::bottom() - top, m_metrics, common.get());
            sheet.add({0, top}, [&](Drawing& drawing) { paintAway(layout, drawing); });
        });
}

void Atlas::planTables() {
    const std::map<int, std::string> names = reachNamesOf(*m_study.base().file);
    beginPart("Targets", 0);
    planTable(sumsOfRuns(m_study, compliance(), m_judged), 1);
    for (std::size_t run = 0; run < m_study.runs().size(); ++run) {
        const StudyRun& of = m_study.runs()[run];
        AtlasTable byReach =
            atlasTable(reachTable(of, m_judged[run].rows),
                       {complianceColumns(run > 0), {"verdict"}, "without a verdict", mostRows, names});
        byReach.title = "Targets by reach, " + shownName(of.name);
        planTable(std::move(byReach), 1);
    }
    if (m_study.runs().size() < 2) return;
    beginPart("Changes", 0);
    const bool byRiver =
        m_study.base().reaches().count() > static_cast<int>(mostReachRows) && !m_network.hasCircles();
    for (std::size_t run = 1; run < m_study.runs().size(); ++run) {
        const ComparedRun held = compared(m_study.base(), m_study.runs()[run]);
        const ChangeRequest request{m_request.series, Statistic::mean, {}, false};
        const Table table =
            byRiver ? changesByRiver(held, m_network, request) : changesByReach(held, request);
        AtlasTable changes = atlasTable(table, {changeColumns(byRiver ? "river" : "reach"),
                                                {"largest_rise_value", "largest_fall_value"},
                                                "without any change",
                                                mostRows,
                                                names});
        changes.note = trim("Means over the points of both runs. " + changes.note);
        changes.title = "Changes from " + shownName(held.base.name) + " to " + shownName(held.run.name);
        planTable(std::move(changes), 1);
    }
}

void Atlas::planTable(AtlasTable table, int level) {
    beginPart(table.title, level);
    const auto layout = std::make_shared<const TableLayout>(std::move(table), m_metrics);
    for (const TablePart& part : layout->parts())
        m_pages.push_back([layout, part](AtlasSheet& sheet) { layout->paint(part, sheet); });
}

// The list of contents stands behind the title page; all else moves on.
void Atlas::planContents() {
    m_contentsPages = std::max<std::size_t>(1, (m_parts.size() + partsAPage() - 1) / partsAPage());
    for (Part& part : m_parts)
        if (part.page > 0) part.page += m_contentsPages;
    m_parts.insert(m_parts.begin() + 1, {"Contents", 0, 1});
    std::vector<PagePainter> contents;
    for (std::size_t page = 0; page < m_contentsPages; ++page)
        contents.push_back([this, page](AtlasSheet& sheet) { paintContents(sheet, page * partsAPage()); });
    m_pages.insert(m_pages.begin() + 1, contents.begin(), contents.end());
}

Drawing Atlas::page(std::size_t page, Drawing reused) const {
    AtlasSheet sheet(m_metrics, std::move(reused));
    m_pages.at(page)(sheet);
    sheet.foot(title(), page, pageCount());
    return std::move(sheet.drawing());
}

std::shared_ptr<const DocumentOutline> Atlas::outline() const {
    const auto outline = std::make_shared<DocumentOutline>();
    outline->language = "en";
    outline->links.resize(pageCount());
    const AtlasSheet sheet(m_metrics);
    for (std::size_t k = 0; k < m_parts.size(); ++k) {
        outline->bookmarks.push_back({m_parts[k].title, m_parts[k].page, m_parts[k].level});
        const std::size_t page = k / partsAPage();
        const double top =
            contentsTop() + static_cast<double>(k % partsAPage()) * atlasPartHeight * sheet.line();
        outline->links[1 + page].push_back(
            {0, top / atlasHeight, 1, (top + 1.4 * sheet.line()) / atlasHeight, m_parts[k].page});
    }
    return outline;
}

} // namespace korvel
