// How the network's reaches are coloured.
#pragma once

#include "explore/ExploreState.h"
#include "panels/NetworkLayout.h"

namespace korvel {

// By the overall verdict of a run, or by the mean of a series and the state's statistic along each reach. The
// run is given by its place in the study.
NetworkView networkView(const ExploreState& state, NetworkColours colours, std::size_t run, int series);

// The same, made anew only where it would be another.
class KnownColouring {
  public:
    const NetworkView& of(const ExploreState& state, NetworkColours colours, std::size_t run, int series);

  private:
    struct Key {
        std::shared_ptr<const Study> study;
        NetworkColours colours = NetworkColours::plain;
        std::size_t run = 0;
        int series = 0;
        Statistic statistic = Statistic::mean;
        std::set<int> lowIsBad;
        bool operator==(const Key&) const = default;
    };

    Key m_key;
    NetworkView m_view;
};

} // namespace korvel
