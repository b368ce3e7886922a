// Which help page is shown next. Set by whoever shows the help form, before it is loaded.
#pragma once

#include <string>

namespace korvel {

struct HelpHandOver {
    std::string helpPage; // "4" to "10" are pages about the data file
};

} // namespace korvel
