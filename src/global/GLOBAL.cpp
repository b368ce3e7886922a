#include "global/GLOBAL.h"

namespace korvel {

Globals GLOBAL;

} // namespace korvel
