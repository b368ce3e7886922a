#include "graphs/SmallCatchment.h"

#include "fakes/ResultsFileBuilder.h"

#include <array>

namespace korvel {

namespace {

struct Reach {
    int number;
    const char* name; // 16 characters
    double length;    // km
    int next;
};

constexpr std::array<Reach, 4> reaches = {{{1, "Upper Mill      ", 10, 2},
                                           {7, "Side Brook      ", 4, 3},
                                           {2, "Middle Mill     ", 20, 3},
                                           {3, "Lower Mill      ", 30, 0}}};
constexpr int pointsPerReach = 3;

} // namespace

std::unique_ptr<ResultsDataSet> smallCatchment() {
    auto results = std::make_unique<ResultsDataSet>();
    results->percentileLevel = "95";
    results->percentileCaption = "95%-ile";
    results->determinandCount = 2;
    results->seriesCount = 4;
    const std::array<const char*, 5> names = {"Flow", "BOD (Conc)", "Ammonia (Conc)", "BOD (Load)",
                                              "Ammonia (Load)"};
    for (int c = 0; c <= 4; ++c)
        results->seriesNames[c] = names[static_cast<std::size_t>(c)];
    results->determinandTypes[1] = results->determinandTypes[2] = 1;
    results->determinandStatistics[1] = 1;
    results->determinandStatistics[2] = 2;
    results->reachCount = static_cast<int>(reaches.size());
    for (const Reach& reach : reaches) {
        results->reachOrder.push_back(reach.number);
        results->reachNames.set(reach.number, reach.name);
        results->reachLengths.set(reach.number, reach.length);
        results->reachNext.set(reach.number, reach.next);
        for (int i = 0; i < pointsPerReach; ++i) {
            const int point = ++results->pointCount;
            results->pointReach.set(point, reach.number);
            results->pointDistance.set(point, reach.length * i / pointsPerReach);
        }
    }
    return results;
}

std::string smallResultsFile(int percentileMode, FileEnd end, const std::string& title) {
    ResultsFileBuilder file;
    file.title(title).mode(percentileMode).determinand(1, "BOD", 1).determinand(1, "Ammonia", 2);
    for (const Reach& reach : reaches)
        file.reach(reach.number, reach.name, reach.length, reach.next);
    for (const Reach& reach : reaches)
        for (int i = 0; i < pointsPerReach; ++i)
            file.point(reach.number, reach.length * i / pointsPerReach, "Weir", 1);
    std::string text = file.text();
    if (end == FileEnd::cutShort) text.resize(text.size() - 40);
    return text;
}

} // namespace korvel
