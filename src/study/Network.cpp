#include "study/Network.h"

#include <algorithm>
#include <functional>
#include <queue>

namespace korvel {

namespace {

std::size_t at(int place) {
    return static_cast<std::size_t>(place);
}

class NetworkMaking {
  public:
    explicit NetworkMaking(const RunFile& run) : m_run(run), m_count(at(run.reaches.count())) {}

    Network make() {
        connect();
        findCircles();
        if (m_network.hasCircles()) return std::move(m_network);
        orderDownward();
        measure();
        for (const int mouth : m_network.mouths)
            addRiversOf(mouth);
        return std::move(m_network);
    }

  private:
    double lengthOf(int place) const { return m_run.results.reachLengths[m_run.reaches.number(place)]; }
    void connect();
    void findCircles();
    void orderDownward();
    void measure();
    void addRiversOf(int mouth);
    River riverDownTo(int last, std::vector<int>& tributaries) const;
    int mainInflowOf(int place) const;

    const RunFile& m_run;
    std::size_t m_count;
    std::vector<double> m_way; // the longest from a head to the reach's lower end
    Network m_network;
};

void NetworkMaking::connect() {
    m_network.next.resize(m_count);
    m_network.inflows.resize(m_count);
    for (int place = 0; place < m_run.reaches.count(); ++place) {
        const int nextNumber = m_run.results.reachNext[m_run.reaches.number(place)];
        const int next = nextNumber == 0 ? -1 : m_run.reaches.placeOf(nextNumber);
        m_network.next[at(place)] = next;
        if (next >= 0)
            m_network.inflows[at(next)].push_back(place);
        else
            m_network.mouths.push_back(place);
        if (next < 0 && nextNumber != 0) m_network.nextWithoutLine.push_back(place);
    }
    for (int place = 0; place < m_run.reaches.count(); ++place)
        if (m_network.inflows[at(place)].empty()) m_network.heads.push_back(place);
}

void NetworkMaking::findCircles() {
    enum class State { unseen, onThisWay, done };
    std::vector<State> states(m_count, State::unseen);
    for (int start = 0; start < m_run.reaches.count(); ++start) {
        int place = start;
        for (; place >= 0 && states[at(place)] == State::unseen; place = m_network.next[at(place)])
            states[at(place)] = State::onThisWay;
        if (place >= 0 && states[at(place)] == State::onThisWay) {
            std::vector<int> circle{place};
            for (int next = m_network.next[at(place)]; next != place; next = m_network.next[at(next)])
                circle.push_back(next);
            std::rotate(circle.begin(), std::ranges::min_element(circle), circle.end());
            m_network.circles.push_back(std::move(circle));
        }
        for (place = start; place >= 0 && states[at(place)] == State::onThisWay;
             place = m_network.next[at(place)])
            states[at(place)] = State::done;
    }
    std::ranges::sort(m_network.circles, {}, [](const std::vector<int>& circle) { return circle.front(); });
}

void NetworkMaking::orderDownward() {
    std::vector<std::size_t> toCome;
    for (const std::vector<int>& inflows : m_network.inflows)
        toCome.push_back(inflows.size());
    std::priority_queue<int, std::vector<int>, std::greater<>> ready(std::greater<>(), m_network.heads);
    while (!ready.empty()) {
        const int place = ready.top();
        ready.pop();
        m_network.downward.push_back(place);
        const int next = m_network.next[at(place)];
        if (next >= 0 && --toCome[at(next)] == 0) ready.push(next);
    }
}

void NetworkMaking::measure() {
    m_way.assign(m_count, 0);
    for (const int place : m_network.downward) {
        const int inflow = mainInflowOf(place);
        m_way[at(place)] = lengthOf(place) + (inflow < 0 ? 0 : m_way[at(inflow)]);
    }
    m_network.toMouth.assign(m_count, 0);
    for (auto place = m_network.downward.rbegin(); place != m_network.downward.rend(); ++place) {
        const int next = m_network.next[at(*place)];
        if (next >= 0) m_network.toMouth[at(*place)] = m_network.toMouth[at(next)] + lengthOf(next);
    }
}

// The one that the river comes from; -1 at a head.
int NetworkMaking::mainInflowOf(int place) const {
    const std::vector<int>& inflows = m_network.inflows[at(place)];
    const auto largest = std::ranges::max_element(inflows, {}, [&](int inflow) { return m_way[at(inflow)]; });
    return largest == inflows.end() ? -1 : *largest; // of equals the first
}

// Tributaries are gathered from the mouth upward.
River NetworkMaking::riverDownTo(int last, std::vector<int>& tributaries) const {
    River river;
    river.name = m_run.reachName(m_run.reaches.number(last));
    river.joins = m_network.next[at(last)];
    river.length = m_way[at(last)];
    for (int place = last; place >= 0;) {
        river.reaches.push_back(place);
        const int inflow = mainInflowOf(place);
        std::ranges::copy_if(m_network.inflows[at(place)], std::back_inserter(tributaries),
                             [&](int other) { return other != inflow; });
        place = inflow;
    }
    std::ranges::reverse(river.reaches);
    return river;
}

void NetworkMaking::addRiversOf(int mouth) {
    m_network.riverOf.resize(m_count, -1);
    std::vector<int> lastReaches{mouth}; // the next river's at the end
    while (!lastReaches.empty()) {
        const int last = lastReaches.back();
        lastReaches.pop_back();
        std::vector<int> tributaries;
        m_network.rivers.push_back(riverDownTo(last, tributaries));
        for (const int place : m_network.rivers.back().reaches)
            m_network.riverOf[at(place)] = static_cast<int>(m_network.rivers.size()) - 1;
        lastReaches.insert(lastReaches.end(), tributaries.rbegin(), tributaries.rend());
    }
}

} // namespace

Network networkOf(const RunFile& run) {
    return NetworkMaking(run).make();
}

std::string circleText(const std::vector<int>& circle, const RunFile& run) {
    const bool one = circle.size() == 1;
    std::string text = one ? "Reach " : "Reaches ";
    for (std::size_t k = 0; k < circle.size(); ++k)
        text += (k > 0 ? ", " : "") + std::to_string(run.reaches.number(circle[k]));
    return text + (one ? " runs in a circle" : " run in a circle");
}

std::optional<std::string> circlesIn(const Network& network, const RunFile& run) {
    if (!network.hasCircles()) return std::nullopt;
    std::string text;
    for (const std::vector<int>& circle : network.circles)
        text += (text.empty() ? "" : "; ") + circleText(circle, run);
    return text;
}

std::optional<std::vector<int>> pathBetween(const Network& network, int from, int to) {
    std::vector<int> path;
    for (int place = from; place >= 0 && path.size() < network.next.size(); place = network.next[at(place)]) {
        path.push_back(place);
        if (place == to) return path;
    }
    return std::nullopt;
}

std::vector<double> outflowsOf(const RunFile& run, const Network& network, std::span<const double> values) {
    std::vector<double> outflows(network.next.size(), 0);
    for (const int place : network.downward) {
        double& outflow = outflows[at(place)];
        const std::span<const int> points = run.reaches.pointsOf(place);
        if (!points.empty())
            outflow = values[at(points.back())];
        else
            for (const int inflow : network.inflows[at(place)])
                outflow += outflows[at(inflow)];
    }
    return outflows;
}

} // namespace korvel
