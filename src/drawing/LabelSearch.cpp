#include "drawing/LabelSearch.h"

#include "drawing/LabelRoom.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvel {

namespace {

// What speaks for a set of labels and against it, in units of one ordinary label.
constexpr double importantLabel = 1.5;
constexpr double bend = 0.04;        // of a leader
constexpr double displacement = 0.3; // of a port by the whole reach
constexpr double unevenness = 0.1;   // of a stretch as long as it were if all rows were full
constexpr double usedRoom = 1.0;     // of the room of one label

constexpr std::size_t mostSteps = 500000;

constexpr std::size_t noNode = static_cast<std::size_t>(-1);

// A label that was placed, and the one before it.
struct Node {
    std::size_t request = 0;
    LabelPlace place;
    std::size_t before = noNode;
};

// Labels up to some anchor.
struct Partial {
    LabelEdge edge;
    FreeFrom free;
    double value = 0;
    double lastAt = 0;
    std::size_t lastNode = noNode;
};

constexpr int noRow = -1;

// A label more, or none (on no row), upon a partial one.
struct Step {
    std::size_t partial = 0;
    LabelPlace place;
    double value = 0;
};

// Steps are many and large, so that their order is found among these.
struct Promise {
    double amount = 0; // the value less the room used up
    std::size_t step = 0;
};

double meanWidth(const std::vector<LabelRequest>& requests) {
    double sum = 0;
    for (const LabelRequest& request : requests)
        sum += request.width;
    return sum / static_cast<double>(requests.size());
}

// So many that the time does not grow faster than the number of labels.
std::size_t mostPartials(std::size_t labels, const LabelStrip& strip) {
    const auto rows = static_cast<std::size_t>(strip.rows), most = static_cast<std::size_t>(strip.candidates);
    return std::clamp<std::size_t>(mostSteps / (labels * rows * rows), 1, most);
}

// Goes through the anchors from left to right with the most promising partial labellings.
class Search {
  public:
    Search(const std::vector<LabelRequest>& requests, const LabelStrip& strip, const LabelPlaces& fixed)
        : m_requests(requests),
          m_strip(strip),
          m_fixed(fixed),
          m_width(meanWidth(requests)),
          m_stretch((m_width + strip.gap) / strip.rows),
          m_most(mostPartials(requests.size(), strip)) {}

    LabelPlaces places() {
        setRightEdges();
        m_partials.push_back({LabelEdge::leftOf(m_strip), {}, 0, m_strip.left, noNode});
        m_partials.front().free.set(m_partials.front().edge, m_strip);
        for (std::size_t k = 0; k < m_requests.size(); ++k)
            pass(k);
        return traced();
    }

  private:
    // What the required labels still to come leave free.
    void setRightEdges() {
        LabelEdge edge = LabelEdge::mirroredRightOf(m_strip);
        FreeFrom free;
        free.set(edge, m_strip);
        m_right.push_back(free);
        for (std::size_t k = m_requests.size(); k-- > 0;) {
            if (!m_fixed[k]) continue;
            edge.addMirrored(*m_fixed[k]);
            free.set(edge, m_strip);
            m_right.push_back(free);
        }
    }

    void pass(std::size_t k) {
        m_steps.clear();
        m_promises.clear();
        if (m_fixed[k]) m_right.pop_back();
        for (std::size_t p = 0; p < m_partials.size(); ++p)
            addSteps(k, p);
        keepMostPromising();
        take(k);
    }

    void addSteps(std::size_t k, std::size_t p) {
        setTaken(m_partials[p], m_requests[k].at);
        if (m_fixed[k]) {
            addStep(k, p, *m_fixed[k]);
            return;
        }
        const Partial& partial = m_partials[p];
        const double at = m_requests[k].at;
        push({p, {noRow}, partial.value}, partial.value - used(at) - costOfStretch(partial.lastAt, at));
        for (int row = 0; row < m_strip.rows; ++row)
            addStepsOn(k, p, row);
    }

    void push(const Step& step, double promise) {
        m_promises.push_back({promise, m_steps.size()});
        m_steps.push_back(step);
    }

    // With a leader as straight as it can be, and with one that leaves most room.
    void addStepsOn(std::size_t k, std::size_t p, int row) {
        const LabelRequest& request = m_requests[k];
        const double farthest = m_strip.reach * 1.000001;
        const LabelRoom room = roomBetween(m_partials[p].free, m_right.back(), row);
        const PortRange ports = portsIn(room, request.width, m_strip.clearance());
        if (ports.isEmpty()) return;
        const double nearest = ports.nearestTo(request.at);
        if (std::abs(nearest - request.at) > farthest) return;
        addStep(k, p, placeAt(nearest, row, room, request));
        const double packed = ports.nearestTo(request.at - m_strip.reach);
        if (packed < nearest && std::abs(packed - request.at) <= farthest)
            addStep(k, p, placeAt(packed, row, room, request));
    }

    LabelPlace placeAt(double port, int row, const LabelRoom& room, const LabelRequest& request) const {
        return {row, leftmostText(room, port, request.width, m_strip.clearance()), port};
    }

    void addStep(std::size_t k, std::size_t p, const LabelPlace& place) {
        const LabelRequest& request = m_requests[k];
        const Partial& partial = m_partials[p];
        const double value = partial.value + (request.important ? importantLabel : 1) -
                             costOfLeader(request, place) - costOfStretch(partial.lastAt, request.at);
        push({p, place, value}, value - used(request.at, place, request.width));
    }

    double costOfLeader(const LabelRequest& request, const LabelPlace& place) const {
        const double shift = std::abs(place.port - request.at);
        if (shift == 0) return 0;
        const double part = m_strip.reach > 0 ? std::min(shift / m_strip.reach, 1.0) : 1;
        return bend + displacement * part * part;
    }
    double costOfStretch(double from, double to) const {
        const double stretch = (to - from) / m_stretch;
        return unevenness * stretch * stretch;
    }

    // From where each row is taken up to, seen from an anchor: a label there could begin a width before its
    // leader.
    void setTaken(const Partial& partial, double at) {
        m_taken.resize(partial.free.text.size());
        for (std::size_t r = 0; r < m_taken.size(); ++r)
            m_taken[r] = std::max({partial.free.text[r], partial.free.port[r] - m_width, at - m_width});
    }
    // The room to the right of the anchor that is taken, in labels.
    double used(double at) const {
        double sum = 0;
        for (const double taken : m_taken)
            sum += taken;
        return inLabels(sum, at);
    }
    double used(double at, const LabelPlace& place, double width) const {
        const double end = place.left + width;
        const double beforeText = place.port + m_strip.clearance();
        const double behindText = std::max(beforeText, end + m_strip.clearance()) - m_width;
        const auto row = static_cast<std::size_t>(place.row);
        double sum = std::max(m_taken[row], end + m_strip.gap);
        for (std::size_t r = 0; r < row; ++r)
            sum += std::max(m_taken[r], beforeText);
        for (std::size_t r = row + 1; r < m_taken.size(); ++r)
            sum += std::max(m_taken[r], behindText);
        return inLabels(sum, at);
    }
    double inLabels(double sum, double at) const {
        const double free = static_cast<double>(m_taken.size()) * (at - m_width);
        return usedRoom * (sum - free) / (m_width + m_strip.gap);
    }

    void keepMostPromising() {
        if (m_promises.size() <= m_most) return;
        const auto end = m_promises.begin() + static_cast<std::ptrdiff_t>(m_most);
        std::nth_element(m_promises.begin(), end, m_promises.end(),
                         [](const Promise& a, const Promise& b) { return a.amount > b.amount; });
        m_promises.erase(end, m_promises.end());
    }

    void take(std::size_t k) {
        m_next.resize(m_promises.size());
        for (std::size_t s = 0; s < m_promises.size(); ++s) {
            const Step& step = m_steps[m_promises[s].step];
            m_next[s] = m_partials[step.partial];
            if (step.place.row != noRow) take(k, step, m_next[s]);
        }
        std::swap(m_partials, m_next);
    }
    void take(std::size_t k, const Step& step, Partial& partial) {
        m_nodes.push_back({k, step.place, partial.lastNode});
        partial.lastNode = m_nodes.size() - 1;
        partial.value = step.value;
        partial.lastAt = m_requests[k].at;
        partial.edge.add(step.place, m_requests[k].width);
        partial.free.set(partial.edge, m_strip);
    }

    LabelPlaces traced() const {
        const auto value = [&](const Partial& partial) {
            return partial.value - costOfStretch(partial.lastAt, m_strip.right);
        };
        const auto best =
            std::max_element(m_partials.begin(), m_partials.end(),
                             [&](const Partial& a, const Partial& b) { return value(a) < value(b); });
        LabelPlaces places(m_requests.size());
        for (std::size_t node = best->lastNode; node != noNode; node = m_nodes[node].before)
            places[m_nodes[node].request] = m_nodes[node].place;
        return places;
    }

    const std::vector<LabelRequest>& m_requests;
    const LabelStrip& m_strip;
    const LabelPlaces& m_fixed;
    double m_width;
    double m_stretch;
    std::size_t m_most; // partial labellings that are kept
    std::vector<FreeFrom> m_right;
    std::vector<double> m_taken;
    std::vector<Partial> m_partials, m_next;
    std::vector<Step> m_steps;
    std::vector<Promise> m_promises;
    std::vector<Node> m_nodes;
};

} // namespace

LabelPlaces searchLabelPlaces(const std::vector<LabelRequest>& requests, const LabelStrip& strip,
                              const LabelPlaces& fixed) {
    if (requests.empty()) return {};
    return Search(requests, strip, fixed).places();
}

} // namespace korvel
