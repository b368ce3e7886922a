// The river that a run is shown along where nobody has chosen another.
#pragma once

#include "study/Network.h"

namespace korvel {

// The river that ends at the mouth with the largest mean flow, of equals the first in file order. None where
// reaches run in circles, or there are none.
const River* mainRiver(const RunFile& run, const Network& network);

} // namespace korvel
