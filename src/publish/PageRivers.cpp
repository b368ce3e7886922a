#include "publish/PageRivers.h"

#include "drawing/Units.h"
#include "publish/PageData.h"
#include "publish/PageMetrics.h"
#include "publish/PagePicture.h"
#include "publish/PageSections.h"
#include "publish/PageText.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>
#include <memory>
#include <numeric>

namespace korvel {

namespace {

constexpr double pictureWidth = 540; // pixels
constexpr double panelHeight = 110;
constexpr double frameHeight = 150; // of the axis, the names and the key
constexpr std::size_t panelsOfOnePicture = 6;

std::size_t pointsOf(const PageStudy& study, const River& river) {
    std::size_t most = 0;
    for (const PageRun& run : study.runs()) {
        std::size_t points = 0;
        for (const int place : river.reaches) {
            const int number = study.base().reaches().number(place);
            points += run.run.reaches().pointsOf(run.run.reaches().placeOf(number)).size();
        }
        most = std::max(most, points);
    }
    return most;
}

// The longest ones, in their order.
std::vector<std::size_t> longestRivers(const std::vector<River>& rivers, std::size_t most) {
    std::vector<std::size_t> order(rivers.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, std::ranges::greater(), [&](std::size_t r) { return rivers[r].length; });
    order.resize(std::min(order.size(), most));
    std::ranges::sort(order);
    return order;
}

// Mean and judged statistic, each with two limits and a sample, and a target.
std::size_t valuesOfPlace(const PageStudy& study) {
    std::size_t values = 0;
    for (const int series : study.request().series)
        values += study.base().results().kindOf(series) == SeriesKind::concentration ? 9 : 4;
    return std::max<std::size_t>(1, values * study.runs().size());
}

} // namespace

RiverPlan planRivers(const PageStudy& study, const PageLimits& limits) {
    const std::size_t series = std::max<std::size_t>(1, study.request().series.size());
    RiverPlan plan;
    plan.rivers = longestRivers(study.network().rivers, std::max<std::size_t>(1, limits.panels / series));
    for (const std::size_t river : plan.rivers)
        plan.placesInAll += pointsOf(study, study.network().rivers[river]);
    plan.mostPlaces = limits.values / valuesOfPlace(study);
    // Every run's band has two edges; targets and samples count as a curve each.
    const std::size_t curves =
        std::max<std::size_t>(1, plan.rivers.size()) * series * (3 * study.runs().size() + 2);
    plan.verticesOfCurve = limits.vertices / curves;
    return plan;
}

std::vector<std::size_t> keptPlaces(const StudyPath& path, std::size_t most,
                                    const std::vector<int>& basePointsToKeep) {
    std::vector<std::size_t> kept;
    const std::size_t count = path.places.size();
    const std::size_t step = most == 0 ? count : (count + most - 1) / most;
    for (std::size_t k = 0; k < count; ++k) {
        const PathPlace& place = path.places[k];
        const bool isEnd = k == 0 || k + 1 == count || path.places[k - 1].reach != place.reach ||
                           path.places[k + 1].reach != place.reach;
        const bool mustStay = place.run == 0 && std::ranges::binary_search(basePointsToKeep, place.point);
        if (step <= 1 || k % step == 0 || isEnd || mustStay) kept.push_back(k);
    }
    return kept;
}

namespace {

std::vector<int> worstPoints(const PageStudy& study) {
    std::vector<int> points;
    for (const ComplianceRow& row : study.runs().front().compliance)
        if (row.reach.worst) points.push_back(row.reach.worst->point);
    std::ranges::sort(points);
    return points;
}

std::vector<std::vector<int>> seriesOfPictures(const PageStudy& study) {
    const std::vector<int>& all = study.request().series;
    if (all.size() <= panelsOfOnePicture) return {all};
    std::vector<std::vector<int>> pictures(2);
    for (const int series : all)
        pictures[isLoad(study.base().results(), series) ? 1 : 0].push_back(series);
    if (pictures[0].empty() || pictures[1].empty()) {
        const auto half = all.begin() + static_cast<std::ptrdiff_t>((all.size() + 1) / 2);
        pictures = {{all.begin(), half}, {half, all.end()}};
    }
    return pictures;
}

Statistic shownStatistic(const PageStudy& study, int series) {
    for (const JudgedDeterminand& each : study.judged())
        if (each.number == series) return each.statistic;
    return Statistic::mean;
}

// A panel for each series, with the statistic by which it is judged.
ProfileData dataOf(const PageStudy& study, const Study& runs, const std::shared_ptr<const StudyPath>& path,
                   const std::vector<int>& series) {
    ProfileView view;
    view.series = series;
    view.lowIsBad = study.request().lowIsBad;
    ProfileData data{runs, path, view, {}};
    for (const int each : series) {
        view.series = {each};
        view.statistic = shownStatistic(study, each);
        ProfileData one = profileData(runs, path, view);
        std::ranges::move(one.panels, std::back_inserter(data.panels));
    }
    return data;
}

std::string seriesWords(const PageStudy& study, const std::vector<int>& series) {
    std::string words;
    for (const int each : series) {
        words += (words.empty() ? "" : ", ") + study.seriesTitle(each);
        if (study.base().results().kindOf(each) == SeriesKind::concentration)
            words += " (" + wordsOf(shownStatistic(study, each)) + ")";
    }
    return words;
}

class RiverWriter {
  public:
    RiverWriter(PageHtml& html, const PageStudy& study, const RiverPlan& plan)
        : m_html(html), m_study(study), m_plan(plan), m_worst(worstPoints(study)) {
        for (const PageRun& run : study.runs())
            m_runs.push_back(run.run);
    }

    void write(std::size_t index) {
        const River& river = m_study.network().rivers[index];
        const Study runs(m_runs);
        const auto path = std::make_shared<const StudyPath>(studyPath(runs, river.reaches));
        const std::string id = riverId(index);
        m_html.open("section", {{"class", "river"}, {"id", id}, {"aria-labelledby", id + "-h"}}).line();
        m_html.open("h3", {{"id", id + "-h"}}).name(river.name).close().line();
        writeFacts(river);
        m_html.element("div", "", {{"class", "readout"}}).line();
        const std::vector<std::vector<int>> pictures = seriesOfPictures(m_study);
        m_html.open("div", {{"class", pictures.size() > 1 ? "pictures two" : "pictures"}}).line();
        std::size_t number = 0;
        for (const std::vector<int>& series : pictures)
            writePicture(dataOf(m_study, runs, path, series), river, id + "-" + std::to_string(++number));
        m_html.closeLine();
        writeNumbers(*path, id);
        m_html.closeLine();
    }

  private:
    void writeReach(int place) {
        m_html.element("bdi", m_study.reachTitle(m_study.base().reaches().number(place)));
    }
    void writeFacts(const River& river) {
        m_html.open("p", {{"class", "quiet"}}).words(shownDecimals(river.length, 1) + " km");
        if (river.joins >= 0) {
            m_html.words(", runs into ");
            writeReach(river.joins);
        }
        m_html.words(". Reaches: ");
        constexpr std::size_t most = 40;
        for (std::size_t k = 0; k < std::min(most, river.reaches.size()); ++k) {
            m_html.words(k == 0 ? "" : ", ");
            writeReach(river.reaches[k]);
        }
        m_html.words(river.reaches.size() > most ? " ..." : ".").closeLine();
    }

    void writePicture(const ProfileData& data, const River& river, const std::string& id) {
        const double height =
            (panelHeight * static_cast<double>(data.panels.size()) + frameHeight) * twipsPerPixel;
        const ProfileLayout layout = layOutProfile(data, data.view, panelLook(Theme::light),
                                                   pictureWidth * twipsPerPixel, height, PageMetrics());
        const std::string name = pageText(river.name);
        m_html.open("figure").line();
        writeProfilePicture(m_html, layout,
                            {id, "Profile of " + name,
                             "Curves over the distance down " + name + ", one panel each for " +
                                 seriesWords(m_study, data.view.series) +
                                 "; the tables below tell verdicts and changes in numbers."},
                            m_plan.verticesOfCurve);
        m_html.closeLine();
    }

    void writeNumbers(const StudyPath& path, const std::string& id) {
        const bool isThinned = m_plan.placesInAll > m_plan.mostPlaces;
        const std::size_t most =
            isThinned ? m_plan.mostPlaces * path.places.size() / std::max<std::size_t>(1, m_plan.placesInAll)
                      : path.places.size();
        const std::vector<std::size_t> kept = keptPlaces(path, std::max<std::size_t>(1, most), m_worst);
        if (kept.size() < path.places.size())
            writeNote(m_html,
                      "Of " + std::to_string(path.places.size()) + " points " + std::to_string(kept.size()) +
                          " are in the panels, so that the page stays small; verdicts and tables take all.");
        m_html.markup("<script type=\"application/json\" id=\"" + id + "-data\">");
        writeRiverData(m_html.out(), m_study, path, kept);
        m_html.markup("</script>").line();
    }

    PageHtml& m_html;
    const PageStudy& m_study;
    const RiverPlan& m_plan;
    std::vector<int> m_worst; // points of the base
    std::vector<StudyRun> m_runs;
};

} // namespace

std::string riverId(std::size_t river) {
    return "river-" + std::to_string(river + 1);
}

void writeRivers(PageHtml& html, const PageStudy& study, const RiverPlan& plan) {
    openSection(html, "rivers", "Down the rivers");
    html.element("div", "", {{"class", "tools"}, {"id", "tools"}}).line();
    if (plan.rivers.size() < study.network().rivers.size())
        writeNote(html, "Of " + std::to_string(study.network().rivers.size()) + " rivers the " +
                            std::to_string(plan.rivers.size()) +
                            " longest are shown here; the tables take all.");
    RiverWriter writer(html, study, plan);
    for (std::size_t k = 0; k < plan.rivers.size(); ++k) {
        study.tellProgress(0.5 + 0.4 * static_cast<double>(k) / static_cast<double>(plan.rivers.size()));
        writer.write(plan.rivers[k]);
    }
    html.closeLine();
}

void writePageSetup(PageHtml& html, const PageStudy& study) {
    html.markup("<script type=\"application/json\" id=\"setup\">");
    writeSetupData(html.out(), study);
    html.markup("</script>").line();
}

} // namespace korvel
