#include "drawing/LabelThinning.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

namespace korvel {

namespace {

constexpr double choice = 4; // requests for each label that the rows could hold

// How many labels the rows could hold if all were as wide as the one that a tenth is narrower than.
double capacity(const std::vector<LabelRequest>& requests, const LabelStrip& strip) {
    std::vector<double> widths;
    for (const LabelRequest& request : requests)
        widths.push_back(request.width);
    const auto narrow = widths.begin() + static_cast<std::ptrdiff_t>(widths.size() / 10);
    std::nth_element(widths.begin(), narrow, widths.end());
    return strip.rows * (strip.right - strip.left) / std::max(*narrow + strip.gap, 1.0);
}

bool better(const LabelRequest& a, const LabelRequest& b) {
    return std::tuple(b.important, a.width) < std::tuple(a.important, b.width);
}

} // namespace

std::vector<std::size_t> worthSearching(const std::vector<LabelRequest>& requests, const LabelStrip& strip) {
    const double most = choice * capacity(requests, strip);
    std::vector<std::size_t> chosen;
    if (static_cast<double>(requests.size()) <= most) {
        chosen.resize(requests.size());
        std::iota(chosen.begin(), chosen.end(), std::size_t{0});
        return chosen;
    }
    const double slot = (strip.right - strip.left) / most;
    double slotEnd = -1;
    for (std::size_t k = 0; k < requests.size(); ++k) {
        const LabelRequest& request = requests[k];
        const bool follows =
            !chosen.empty() && request.at < slotEnd && !requests[chosen.back()].required && !request.required;
        if (!follows) {
            chosen.push_back(k);
            slotEnd = (std::floor(request.at / slot) + 1) * slot;
        } else if (better(request, requests[chosen.back()])) {
            chosen.back() = k;
        }
    }
    return chosen;
}

} // namespace korvel
