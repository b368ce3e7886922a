// What a single run of the engine asks for, as the launcher of one run knows it. Whoever carries out many
// runs is handed these rules, so that one run and a thousand go by the same.
#pragma once

#include <functional>
#include <string>
#include <variant>

namespace korvel {

struct RunFiles {       // model names
    std::string folder; // of the data file; ends in a backslash
    std::string base;   // the data file's name without ".DAT"
    bool operator==(const RunFiles&) const = default;
};

struct EngineRules {
    // For a data file by its model name: what the engine is told of it, or why it is refused.
    std::function<std::variant<RunFiles, std::string>(const std::string& modelName)> dataFile;
    // The run-control file of one run of this type.
    std::function<std::string(const RunFiles& files, int runType)> runControlText;
    std::string runControlFile;
    std::string engineFile;
};

} // namespace korvel
