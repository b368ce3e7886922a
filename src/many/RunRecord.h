// What is known of one run of a plan, as one line of the record: a JSON object.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvel {

enum class RunState { started, done, failed, stopped };

// Texts that don't apply are empty; the line has null for them.
struct RunRecord {
    std::string name;
    std::string dataFile; // as the plan names it
    int type = 0;
    std::string title;
    RunState state = RunState::started;
    std::optional<int> exitStatus; // of the engine; 128 + the signal's number where it was killed
    std::string started;           // ISO 8601, UTC
    std::string ended;
    std::string host;
    std::string engineSum; // SHA-256, as of the others
    std::string dataSum;
    std::string results; // relative to the plan's folder where the data file is
    std::string resultsSum;
    std::string korvel;  // version
    std::string message; // why it failed or stopped
    bool operator==(const RunRecord&) const = default;
};

// Without a line end.
std::string recordLine(const RunRecord& record);
// Nothing where the line is none of a record. What it doesn't know it leaves alone.
std::optional<RunRecord> recordOfLine(std::string_view line);

// "2026-11-22T09:30:00.125Z"
std::string timeNow();

} // namespace korvel
