// How long 60,000 labels take to be placed on the rows under a graph. Arguments: a folder,
// which it does not need, and the number of rounds.
#include "Rows.h"
#include "drawing/LabelPlacing.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

namespace korvel {

namespace {

constexpr int labels = 60000;
constexpr double limit = 0.1; // seconds

std::vector<LabelRequest> requestsOn(double width) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> at(0, width), text(60, 250);
    std::vector<LabelRequest> requests;
    requests.reserve(labels);
    for (int k = 0; k < labels; ++k)
        requests.push_back({at(random), text(random), k % 3 == 0, k == 0 || k == labels - 1});
    return requests;
}

// A quantity with a bound of its own, in seconds.
void printSeconds(const std::string& job, const Contest& contest) {
    const Cost cost = contest.medianOf(0);
    print({job, milliseconds(cost.processor), "a tenth of a second", milliseconds(limit),
           twoDecimals(cost.processor / limit), twoDecimals(cost.clock / limit), "<= 1",
           cost.processor > limit});
}

void measure(const std::string& job, double width, int rounds) {
    const std::vector<LabelRequest> requests = requestsOn(width);
    std::size_t shown = 0;
    const auto place = [&] {
        const auto places = placeLabels(requests, {0, width, 6, 90, 6});
        shown = static_cast<std::size_t>(
            std::ranges::count_if(places, [](const auto& found) { return found.has_value(); }));
    };
    const Contest contest(rounds, {[&] { return costOf(place); }});
    printSeconds(job + ", " + std::to_string(shown) + " shown", contest);
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const int rounds = std::atoi(argv[2]);
    measure("placing 60000 labels on 6 rows", 1200, rounds);
    measure("the same where most fit", labels * 300.0, rounds);
}
