// A results file in the second slot. Where a byte 1E stands, what is before it is the first file, else that
// is a small river.
#include "fakes/ResultsFileBuilder.h"
#include "fuzz/ResultsFuzz.h"
#include "results/SecondDataSet.h"

namespace korvel {

namespace {

constexpr char between = '\x1E';

std::string river() {
    return ResultsFileBuilder()
        .title("River")
        .determinand(1, "BOD", 3)
        .reach(1, "Upper Mill", 12.5, 2)
        .reach(2, "Lower Mill", 7.25)
        .point(1, 0, "Weir")
        .point(1, 3.5, "U/S Works", 3)
        .point(2, 1, "Gauge", 4)
        .text();
}

bool sameDeterminands(const ResultsDataSet& first, const PlainResults& second) {
    if (first.determinandCount != static_cast<int>(second.determinands.size())) return false;
    for (int d = 1; d <= first.determinandCount; ++d) {
        const PlainDeterminand& determinand = second.determinands[static_cast<std::size_t>(d - 1)];
        if (determinand.type != first.determinandTypes[d] || determinand.name != first.determinandNames[d])
            return false;
    }
    return true;
}

bool sameReaches(const ResultsDataSet& first, const PlainResults& second) {
    const auto isSame = [&](const PlainReach& reach) {
        return reach.name == first.reachNames[reach.number] &&
               reach.length == first.reachLengths[reach.number] &&
               reach.next == first.reachNext[reach.number];
    };
    return first.reachCount == static_cast<int>(second.reaches.size()) &&
           std::ranges::all_of(second.reaches, isSame);
}

bool samePoints(const ResultsDataSet& first, const PlainResults& second) {
    int index = 0;
    return std::ranges::all_of(second.points, [&](const PlainPoint& point) {
        ++index;
        return point.reach == first.pointReach[index] && point.distance == first.pointDistance[index];
    });
}

void requireLoaded(const ResultsDataSet& results, const PlainResults& second, int firstMode,
                   const Load& made) {
    require(results.pointCount == static_cast<int>(second.points.size()), "the count is the second file's");
    require(results.pointReach[results.pointCount + 1] == 0, "a shorter second file shortens the first");
    require(results.percentileMode == firstMode, "the first file's mode stays");
    requireValues(results, 1, second);
    const std::size_t warnings =
        std::size_t(second.percentileMode != firstMode) + std::size_t(targetsDiffer(results));
    require(made.messages.size() == warnings, "modes and targets that differ are warned of");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    const std::size_t cut = text.find(between);
    const std::string firstText = cut == std::string::npos ? river() : text.substr(0, cut);
    const std::string secondText = cut == std::string::npos ? text : text.substr(cut + 1);
    ResultsDataSet results;
    if (load(TextSource(firstText), results, 0).ending != Ending::loaded) return 0;
    const int points = results.pointCount, mode = results.percentileMode;
    const std::optional<PlainResults> second = plainResults(secondText);
    const bool fits = second && sameDeterminands(results, *second) && sameReaches(results, *second) &&
                      samePoints(results, *second);

    const Load made = load(ShortReads(secondText, 29), results, 1);
    // Where a label names a reach that there can't be, only a first file fails.
    require(!fits || made.ending == Ending::loaded, "a file that fits the first one loads");
    require(made.ending != Ending::loaded || !second || fits, "a file that doesn't is refused");
    require(made.ending != Ending::abandoned || !made.messages.empty(), "a refusal says why");
    if (made.ending != Ending::loaded)
        require(results.pointCount == points, "a refused file leaves the count");
    else if (second)
        requireLoaded(results, *second, mode, made);
    return 0;
}

} // namespace korvel
