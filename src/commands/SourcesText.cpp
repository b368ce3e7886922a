#include "commands/SourcesText.h"

#include "tables/PeopleNumbers.h"

namespace korvel {

namespace {

std::string quantity(const std::string& what) {
    return what == "Flow" ? "flow" : "load of " + what;
}

// How many of the largest sources bring so much of the load.
int sourcesFor(double percent, const LoadSources& sources) {
    double share = 0;
    int count = 0;
    for (const Contribution& each : sources.contributions) {
        if (share >= percent) break;
        share += each.share.value_or(0);
        ++count;
    }
    return count;
}

} // namespace

void describeSources(TextPage& page, const StudyRun& run, const LoadSources& sources,
                     const std::string& what) {
    const std::string name = run.file->reachName(sources.reach);
    page.heading(run.name + ": where the mean " + quantity(what) + " comes from");
    page.line("At reach " + std::to_string(sources.reach) + (name.empty() ? "" : " " + name) +
              (sources.distance ? ", " + shownKm(*sources.distance) : "") + ": " + shownNumber(sources.load));
    page.line(
        "An estimate: losses are shared by all that has come in above them, and what comes in and is lost "
        "between two points is seen as one.");
    page.space();
}

void concludeSources(TextPage& page, const LoadSources& sources, const std::string& what) {
    double lost = 0;
    for (const Loss& loss : sources.losses)
        lost += loss.load;
    page.space();
    if (sources.load == 0) {
        page.line("No " + quantity(what) + " arrives there.");
        return;
    }
    constexpr double most = 80; // percent
    const int few = sourcesFor(most, sources);
    const int all = static_cast<int>(sources.contributions.size());
    const Contribution& first = sources.contributions.front();
    page.line(std::to_string(few) + " of " + counted(all, "source", "sources") + " bring" +
              (few == 1 ? "s " : " ") + shownDecimals(most, 0) + " % of the " + quantity(what) +
              " or more; most comes from " + first.name + " (" + shownPercent(first.share) +
              " %). Lost on the way: " + shownNumber(lost) + ".");
}

} // namespace korvel
