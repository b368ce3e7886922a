// Files that are dragged onto a window.
#pragma once

#include <string>
#include <vector>

class QMimeData;

namespace korvel {

// Model names of those that lie on this machine and have this extension, in any case; "" takes all.
std::vector<std::string> droppedFiles(const QMimeData& data, const std::string& extension = "");

} // namespace korvel
