// The published page: what runs say, as one HTML file that needs nothing from anywhere. It can be read
// without scripts, printed, and looked into with them.
#pragma once

#include "study/Study.h"
#include "tables/OutputBytes.h"

#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvel {

struct PageRequest {
    std::string title;       // as typed, UTF-8; the base's own where empty
    std::vector<int> series; // what is shown
    std::set<int> lowIsBad;  // determinands by number
    // Is told how much is written, 0 to 1; says whether to go on.
    std::function<bool(double)> progress = {};
};

// The page could not be made; in words for the user.
struct PageRefused : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The user no longer wants it.
struct PageCancelled : std::runtime_error {
    PageCancelled() : std::runtime_error("cancelled") {}
};

// The same study and request give the same bytes. Throws PageRefused where the reaches run in a circle, and
// PageCancelled.
void writePage(const Study& study, const PageRequest& request, OutputBytes& out);

} // namespace korvel
