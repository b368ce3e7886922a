// Where a model name lies, to Windows: there it stands as it is, and the file system itself takes names in
// any case.
#include "basic/DiskNames.h"

namespace korvel {

std::string hostPathOf(std::string_view modelName) {
    return std::string(modelName);
}

} // namespace korvel
