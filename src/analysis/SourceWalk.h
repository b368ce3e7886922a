// Walks a load from the heads down and keeps, at every reach's end, what it is made of.
#pragma once

#include "analysis/Sources.h"
#include "study/SeriesValues.h"

#include <span>

namespace korvel {

class SourceWalk {
  public:
    SourceWalk(const RunFile& run, const Network& network, int series);

    // The next reach, after all that run into it, down to the last of these points.
    void through(int place, std::span<const int> points);
    // Contributions (with their load and arrival) and losses there, as they came about.
    LoadSources at(int place) const;

  private:
    // What a load is made of: contributions by their index, and what is left of each.
    struct Mixture {
        double load = 0;
        std::vector<int> sources;
        std::vector<double> amounts;
    };
    // Where something comes in or is lost.
    struct Entry {
        SourceKind kind = SourceKind::diffuse;
        std::string name;
        std::optional<double> distance;
    };

    Mixture inflowInto(int place);
    void begin(Mixture& mixture, int place, int firstPoint);
    void step(Mixture& mixture, int place, int from, int to);
    void change(Mixture& mixture, int place, double load, const Entry& entry);
    void rise(Mixture& mixture, int place, double amount, const Entry& entry);
    void lose(int place, double amount, const Entry& entry);
    Entry along(int place) const;
    bool isFeature(int from, int to) const;
    Entry feature(int point) const;
    std::string reachTitle(int place) const;
    double loadAt(int point) const;
    void refuseNegative(int place, std::span<const int> points) const;

    const RunFile& m_run;
    const Network& m_network;
    int m_series;
    std::span<const double> m_load;
    std::vector<Mixture> m_mixtures; // at the end of each reach
    std::vector<Contribution> m_contributions;
    std::vector<Loss> m_losses;
    int m_diffuseSource = -1;    // of the reach in hand, once there is one
    std::size_t m_diffuseAt = 0; // its place in the mixture in hand
    int m_alongLoss = -1;
};

} // namespace korvel
