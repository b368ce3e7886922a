#include "fuzz/ResultsFuzz.h"

#include "results/PointValues.h"

#include <bit>

namespace korvel {

Load load(ByteSource&& file, ResultsDataSet& results, int slot) {
    Load made;
    const LoadWatch watch{[&](const Message& message) { made.messages.push_back(message.text); },
                          [](double share) { require(share >= 0 && share <= 1, "progress is a share"); }};
    prepareLoad(results, slot);
    made.failure = failureOf(
        {errors::overflow, errors::subscriptOutOfRange, errors::typeMismatch, errors::inputPastEndOfFile},
        [&] {
            const LoadEnd end = readResults(file, results, slot, watch);
            made.ending = end == LoadEnd::loaded ? Ending::loaded : Ending::abandoned;
        });
    return made;
}

void requireValues(const ResultsDataSet& results, int slot, const PlainResults& plain) {
    const auto places = valuePlacesOfPoint(static_cast<int>(plain.determinands.size()));
    for (std::size_t k = 0; k < places.size(); ++k) {
        const auto column = results.values[slot].column(places[k].field, places[k].series, places[k].level);
        for (std::size_t i = 0; i < plain.points.size(); ++i)
            require(std::bit_cast<std::uint64_t>(column[i + 1]) ==
                        std::bit_cast<std::uint64_t>(plain.points[i].values[k]),
                    "every value lies in its place");
    }
}

} // namespace korvel
