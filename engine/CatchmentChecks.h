// What must hold between the sections of a data file.
#pragma once

#include "engine/Catchment.h"

namespace engine {

// Puts the features in river order and checks every reference; a DataError where one leads nowhere.
void finishCatchment(Catchment& catchment);

} // namespace engine
