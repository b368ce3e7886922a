#include "global/GLOBAL.h"

Globals GLOBAL;
