// Where everything of a profile's panels stands: plain values that can be asked, and painted. Twips, y
// downward from the top left.
#pragma once

#include "drawing/Axis.h"
#include "drawing/Curve.h"
#include "panels/PanelLook.h"
#include "panels/ProfileData.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

struct ProfileBand {
    std::size_t run = 0;
    DrawnBand drawn;
};

struct ProfileCurve {
    std::size_t run = 0;
    Pen pen;
    TracedCurve traced;
};

struct ProfileStroke {
    std::size_t run = 0;
    Pen pen;
    CurveStroke stroke;
};

struct ProfileMark {
    std::size_t run = 0;
    Pen pen;
    DrawnPoint centre;
};

struct ProfilePanel {
    int series = 0;
    PlotArea area;
    Axis values;
    std::vector<ProfileBand> bands;
    std::vector<ProfileCurve> curves; // the base last, on top of the others
    std::vector<ProfileStroke> targets;
    std::vector<ProfileMark> observed;
    std::optional<double> reference;                      // y of the line at 0 of changes, at 1 of ratios
    bool targetsThinned = false, observedThinned = false; // there are more than can be told apart
    std::size_t leftOut = 0;      // values in view that are not above 0 on a logarithmic scale
    std::vector<DrawnText> texts; // title, note, numbers
};

enum class KeySampleKind { line, band, target, cross };

struct ProfileKeyEntry {
    KeySampleKind kind = KeySampleKind::line;
    std::optional<std::size_t> run; // of a run's line
    Pen pen;
    DrawnPoint at; // left end and middle of the sample
    double width = 0;
    DrawnText text;
};

struct FeatureMark {
    double km = 0;
    std::size_t place = 0;          // in the path
    std::vector<DrawnPoint> leader; // empty where it has no label
    DrawnText text;
};

struct ProfileLayout {
    double width = 0;
    double height = 0;
    PanelLook look;
    Axis distance;
    double axisY = 0;    // of the distance axis
    double featureY = 0; // where the features' marks hang
    double markHalf = 0; // half the size of an observed value's cross
    std::vector<ProfilePanel> panels;
    std::vector<ProfileKeyEntry> key;
    std::vector<double> boundaries; // x of those between reaches
    std::vector<DrawnText> texts;   // numbers of the distance axis, names of reaches
    std::vector<DrawnLine> lines;   // beside the names of reaches
    std::vector<FeatureMark> features;
    bool interpolated = true; // whether the cursor stands on interpolated points, too
};

// What pictures of one way share that are laid out one after the other: their distance axes agree as far as
// they can, and the names of features are placed once for those that agree.
struct ProfileCommon {
    double numbers = 0; // least room for the numbers of value axes
    int rows = -1;      // that the features were placed in; less than 0: not yet
    int usedRows = 0;
    Scale distance;
    std::vector<FeatureMark> features;
};

// Fits all panels into the size, however many.
ProfileLayout layOutProfile(const ProfileData& data, const ProfileView& view, const PanelLook& look,
                            double width, double height, const TextMetrics& metrics,
                            ProfileCommon* common = nullptr);

// Under which panels are too low to be read.
double leastProfileHeight(std::size_t panels, const PanelLook& look, const TextMetrics& metrics);

void paint(const ProfileLayout& layout, Drawing& drawing);
// The same; the layout can be asked for places afterwards, but has no curves, bands and marks any more.
void paintAway(ProfileLayout& layout, Drawing& drawing);

// The panel in whose plot area a place lies.
std::optional<std::size_t> panelAt(const ProfileLayout& layout, DrawnPoint at);
// The place of the path nearest to an x.
std::optional<std::size_t> nearestPlace(const ProfileLayout& layout, const StudyPath& path, double x);
double xOf(const ProfileLayout& layout, double km);
double kmAt(const ProfileLayout& layout, double x);
// Where a run's value at a place stands in a panel; nothing where it has none, or it is out of view.
std::optional<DrawnPoint> placeOf(const ProfileLayout& layout, const ProfileData& data, std::size_t panel,
                                  std::size_t run, std::size_t place);

// A line through all panels at a place, and a mark on every curve.
void paintCursor(const ProfileLayout& layout, const ProfileData& data, std::size_t place, Drawing& drawing);

} // namespace korvel
