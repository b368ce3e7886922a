#include "panels/ProfileFeatures.h"

#include "basic/ShownText.h"
#include "basic/Text.h"
#include "drawing/LabelPlacing.h"
#include "panels/TextFitting.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

constexpr std::size_t longestName = 100;  // letters
constexpr std::size_t mostMarks = 4000;   // in view
constexpr int candidates = 50;            // a river is laid out many times, so that time counts
constexpr double lettersPerCandidate = 3; // names closer together than this don't both get a place

// Stations and discharges.
bool isImportant(int featureType) {
    return featureType == 1 || featureType == 4 || featureType == 3 || featureType == 5;
}

class FeaturePlacing {
  public:
    FeaturePlacing(const ProfileData& data, const PanelLook& look, const Scale& distance,
                   const FeatureStrip& strip, const TextMetrics& metrics)
        : m_data(data),
          m_look(look),
          m_distance(distance),
          m_strip(strip),
          m_metrics(metrics),
          m_measures(look, metrics) {}

    PlacedFeatures place() {
        PlacedFeatures placed;
        placed.marks = marksInView();
        if (m_strip.rows == 0 || placed.marks.empty()) return placed;
        const std::vector<std::size_t> chosen = worthPlacing(placed.marks);
        std::vector<LabelRequest> requests;
        for (const std::size_t k : chosen) {
            FeatureMark& mark = placed.marks[k];
            const std::string text =
                fittedText(nameOf(mark), (m_strip.right - m_strip.left) / 3, m_look.font, m_metrics);
            mark.text = textAt({0, 0}, TextAlign::left, text, m_look.font, m_look.quietText, m_metrics);
            requests.push_back(
                {m_distance.place(mark.km), mark.text.width, isImportant(typeOf(mark)), false});
        }
        const auto places = placeLabels(requests, {m_strip.left, m_strip.right, 0.8 * m_measures.letter * 2,
                                                   m_measures.featureReach(), m_strip.rows, candidates});
        for (std::size_t j = 0; j < chosen.size(); ++j) {
            FeatureMark& mark = placed.marks[chosen[j]];
            if (!places[j]) {
                mark.text = {};
                continue;
            }
            hang(mark, *places[j]);
            placed.rows = std::max(placed.rows, places[j]->row + 1);
        }
        return placed;
    }

  private:
    const StudyPath& path() const { return *m_data.path; }
    int typeOf(const FeatureMark& mark) const {
        const PathPlace& place = path().places[mark.place];
        return m_data.study.runs()[place.run].results().pointFeatureType[place.point];
    }
    std::string nameOf(const FeatureMark& mark) const {
        return firstShown(shownLine(featureAt(m_data.study, path().places[mark.place])), longestName);
    }

    // Of very many, one for each few pixels.
    std::vector<FeatureMark> marksInView() const {
        std::vector<FeatureMark> marks;
        const std::vector<std::size_t>& features = path().features;
        const auto kmOf = [&](std::size_t k) { return path().places[k].km; };
        const auto from = std::ranges::lower_bound(features, m_distance.bottom, {}, kmOf);
        const auto to = std::ranges::upper_bound(features, m_distance.top, {}, kmOf);
        const auto step = static_cast<std::size_t>(to - from) / mostMarks + 1;
        for (auto feature = from; feature < to;
             feature += std::min<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(step), to - feature)) {
            FeatureMark mark;
            mark.km = kmOf(*feature);
            mark.place = *feature;
            marks.push_back(std::move(mark));
        }
        return marks;
    }

    // One for each slot along the axis, an important one where there is: placing takes its time.
    std::vector<std::size_t> worthPlacing(const std::vector<FeatureMark>& marks) const {
        std::vector<std::size_t> chosen;
        double lastSlot = -1;
        for (std::size_t k = 0; k < marks.size(); ++k) {
            const double slot =
                std::floor(m_distance.place(marks[k].km) / (lettersPerCandidate * m_measures.letter));
            if (slot != lastSlot)
                chosen.push_back(k);
            else if (isImportant(typeOf(marks[k])) && !isImportant(typeOf(marks[chosen.back()])))
                chosen.back() = k;
            lastSlot = slot;
        }
        return chosen;
    }

    void hang(FeatureMark& mark, const LabelPlace& place) const {
        const double x = m_distance.place(mark.km);
        const double firstRow = m_measures.featureGap(), row = m_measures.featureRow();
        const double rowTop = firstRow + row * place.row;
        const bool aboveText = place.port > place.left && place.port < place.left + mark.text.width;
        mark.text.corner = {place.left, rowTop};
        mark.leader = {{x, 0.25 * m_measures.line}};
        if (place.port != x) mark.leader.push_back({place.port, firstRow});
        mark.leader.push_back({place.port, aboveText ? rowTop : rowTop + 0.8 * row});
    }

    const ProfileData& m_data;
    const PanelLook& m_look;
    const Scale& m_distance;
    const FeatureStrip& m_strip;
    const TextMetrics& m_metrics;
    PanelMeasures m_measures;
};

} // namespace

PlacedFeatures placeFeatures(const ProfileData& data, const PanelLook& look, const Scale& distance,
                             const FeatureStrip& strip, const TextMetrics& metrics) {
    return FeaturePlacing(data, look, distance, strip, metrics).place();
}

void moveDown(std::vector<FeatureMark>& marks, double by) {
    for (FeatureMark& mark : marks) {
        mark.text.corner.y += by;
        for (DrawnPoint& point : mark.leader)
            point.y += by;
    }
}

} // namespace korvel
