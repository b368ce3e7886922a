// What the panels need to show a state: the way, the view and the numbers, made anew only as far as something
// has changed.
#pragma once

#include "explore/ExploreState.h"
#include "panels/ProfileData.h"
#include "panels/Readout.h"
#include "panels/StudyPath.h"

#include <memory>
#include <optional>
#include <string>

namespace korvel {

ProfileView profileView(const ExploreState& state);

// The determinands whose bad side is low, as the state has them.
std::set<int> lowIsBadOf(const ExploreState& state);

class ExploreScene {
  public:
    // The state has a study.
    void show(const ExploreState& state);
    void clear() { m_data.reset(); }

    bool isEmpty() const { return !m_data; }
    const StudyPath& path() const { return *m_data->path; }
    const ProfileView& view() const { return m_view; }
    const ProfileData& data() const { return *m_data; }
    const Study& study() const { return m_data->study; }
    double length() const { return isEmpty() ? 0 : path().length(); }

    // Between places as results files tell them and those of the way. Where the way has no such point it is
    // the nearest one of that reach; nothing in a reach that the way does not touch.
    std::optional<std::size_t> placeOf(const ExplorePlace& place) const;
    ExplorePlace placeAt(std::size_t place) const;

    Readout readout(std::size_t place) const { return readoutAt(study(), path(), m_view, place); }

  private:
    struct PathKey {
        std::shared_ptr<const Study> study;
        int from = 0;
        int to = 0;
        bool operator==(const PathKey&) const = default;
    };

    PathKey m_key;
    ProfileView m_view;
    std::optional<ProfileData> m_data;
};

// One line: where the cursor stands, and what one panel says there; all panels where there is no such one.
std::string cursorText(const Readout& readout, ProfileKind kind, std::size_t panel);

} // namespace korvel
