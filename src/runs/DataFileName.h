// The names of the current data file, taken from a name that the user chose, or the message that refuses it.
#pragma once

#include "platform/Message.h"

#include <string>
#include <string_view>
#include <variant>

namespace korvel {

inline constexpr std::size_t LongestDataFolder = 100; // characters, the backslash at its end included
inline constexpr std::size_t LongestDataFile = 30;    // characters, ".DAT" included

// name = folder + base + ".DAT", all upper case; the folder ends in a backslash.
struct DataFileNames {
    std::string name;
    std::string folder;
    std::string base;
    bool operator==(const DataFileNames&) const = default;
};

using DataFileVerdict = std::variant<DataFileNames, Message>;

// Blanks around it dropped, in upper case.
std::string dataFileName(std::string_view chosen);

// The message for a file that is no data file by its name.
Message refusedExtension();

// An existing file: extension, then length of the folder, then length of the file name.
DataFileVerdict dataFileToOpen(std::string_view chosen);

// A new name for the current data. Kept so: no length is checked here, since nothing is run from it.
DataFileVerdict dataFileToSaveAs(std::string_view chosen);

// The graph results file that the engine writes beside the data file.
std::string resultsFileName(std::string_view folder, std::string_view base);

} // namespace korvel
