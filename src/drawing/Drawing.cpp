#include "drawing/Drawing.h"

#include <algorithm>

namespace korvel {

int Drawing::textCount() const {
    return static_cast<int>(std::count_if(commands.begin(), commands.end(), [](const DrawnCommand& command) {
        return std::holds_alternative<DrawnText>(command);
    }));
}

} // namespace korvel
