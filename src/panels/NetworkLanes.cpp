#include "panels/NetworkLanes.h"

#include <algorithm>
#include <cstdlib>
#include <map>

namespace korvel {

namespace {

struct Taken {
    int river;
    double from, to;
};

// A river with all that runs into it, on lanes counted from its own.
using Block = std::map<int, std::vector<Taken>>;

class LaneFinding {
  public:
    LaneFinding(const Network& network, const std::vector<RiverExtent>& extents, double gap)
        : m_network(network), m_extents(extents), m_gap(gap), m_tributaries(network.rivers.size()) {
        for (std::size_t river = 0; river < network.rivers.size(); ++river) {
            const int joins = network.rivers[river].joins;
            if (joins >= 0) tributariesOf(network.riverOf[at(joins)]).push_back(static_cast<int>(river));
        }
    }

    std::vector<int> find() {
        Block all;
        for (std::size_t river = 0; river < m_network.rivers.size(); ++river) {
            if (m_network.rivers[river].joins >= 0) continue;
            const Block block = blockOf(static_cast<int>(river));
            merge(all, block, all.empty() ? 0 : all.rbegin()->first + 1 - block.begin()->first);
        }
        std::vector<int> lanes(m_network.rivers.size());
        for (const auto& [lane, rivers] : all)
            for (const Taken& taken : rivers)
                lanes[at(taken.river)] = lane - all.begin()->first;
        return lanes;
    }

  private:
    static std::size_t at(int index) { return static_cast<std::size_t>(index); }
    std::vector<int>& tributariesOf(int river) { return m_tributaries[at(river)]; }

    // Tributaries from the head downward: what joins farther down reaches its river on the outside of those.
    Block blockOf(int river) {
        Block block;
        block[0].push_back({river, m_extents[at(river)].from, m_extents[at(river)].to + m_gap});
        std::vector<int> tributaries = tributariesOf(river);
        std::ranges::stable_sort(tributaries, {}, [&](int each) { return m_extents[at(each)].to; });
        int side = -1; // above
        for (const int tributary : tributaries) {
            const Block part = blockOf(tributary);
            const int here = nearestLane(block, part, tributary, side);
            const int there = nearestLane(block, part, tributary, -side);
            const bool other = std::abs(there) < std::abs(here);
            merge(block, part, other ? there : here);
            if (!other) side = -side;
        }
        return block;
    }

    // All of the part stays on its side of the river.
    int nearestLane(const Block& block, const Block& part, int tributary, int side) const {
        const int inner = side < 0 ? part.rbegin()->first : -part.begin()->first;
        for (int distance = 1 + std::max(0, inner);; ++distance) {
            const int lane = side * distance;
            if (isFree(block, part, lane) && canRunDown(block, tributary, lane)) return lane;
            if (distance > farthest(block) + farthest(part) + 1) return lane;
        }
    }
    static int farthest(const Block& block) {
        return std::max(std::abs(block.begin()->first), std::abs(block.rbegin()->first));
    }
    static bool isFree(const Block& block, const Block& part, int shift) {
        return std::ranges::none_of(part, [&](const auto& lane) {
            const auto there = block.find(lane.first + shift);
            return there != block.end() && std::ranges::any_of(lane.second, [&](const Taken& taken) {
                       return std::ranges::any_of(there->second, [&](const Taken& other) {
                           return taken.from < other.to && other.from < taken.to;
                       });
                   });
        });
    }
    // No river between crosses the line to where the tributary joins.
    bool canRunDown(const Block& block, int tributary, int lane) const {
        const double x = m_extents[at(tributary)].to;
        for (int between = lane > 0 ? 1 : -1; between != lane; between += lane > 0 ? 1 : -1) {
            const auto there = block.find(between);
            if (there == block.end()) continue;
            for (const Taken& taken : there->second)
                if (taken.from < x && x < taken.to - m_gap) return false;
        }
        return true;
    }
    static void merge(Block& block, const Block& part, int shift) {
        for (const auto& [lane, taken] : part) {
            std::vector<Taken>& there = block[lane + shift];
            there.insert(there.end(), taken.begin(), taken.end());
        }
    }

    const Network& m_network;
    const std::vector<RiverExtent>& m_extents;
    double m_gap;
    std::vector<std::vector<int>> m_tributaries;
};

} // namespace

std::vector<int> riverLanes(const Network& network, const std::vector<RiverExtent>& extents, double gap) {
    return LaneFinding(network, extents, gap).find();
}

} // namespace korvel
