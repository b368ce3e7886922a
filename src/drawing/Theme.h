// On what is drawn: windows follow the desktop, light or dark; pages and pictures are paper.
#pragma once

namespace korvel {

enum class Theme { light, dark, paper };

} // namespace korvel
