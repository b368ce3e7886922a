#include "basic/Product.h"

namespace korvel {

const char* const productVersion = KORVEL_VERSION;
const char* const productReleaseDate = KORVEL_RELEASE_DATE;

} // namespace korvel
