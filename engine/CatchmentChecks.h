// What must hold between the sections of a data file.
#pragma once

#include "engine/Catchment.h"

namespace korvel::engine {

// Puts the features in river order and checks every reference; a DataError where one leads nowhere.
void finishCatchment(Catchment& catchment);

} // namespace korvel::engine
