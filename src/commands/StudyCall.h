// What the commands on runs side by side have in common: which files, which format, where to.
#pragma once

#include "commands/CommandLine.h"
#include "commands/Commands.h"
#include "study/Network.h"
#include "study/Study.h"
#include "tables/TableFormats.h"

#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

struct FileCount {
    std::size_t least = 1;
    std::size_t most = MaxRuns;
    std::size_t mostOfPlan = MaxRuns;
};

inline constexpr FileCount AnyPlan = {1, MaxRuns, std::numeric_limits<std::size_t>::max()};

// Whether the files of a call are those of a plan.
bool namesPlan(const CommandLine& line);

// Model names of the results files of a call; of a plan those of its finished runs. UsageError for another
// number of files, RefusedCall for a plan that can't be read.
std::vector<std::string> studyFiles(const CommandLine& line, const FileCount& count);

// Reads the files, with progress on a terminal. Throws RefusedCall.
Study takeStudy(CommandCall& call, const std::vector<std::string>& files);

// The network of a run for what needs one without circles. Throws RefusedCall.
Network riverNetwork(const StudyRun& run);

// A run as it is told of: with its name before what is wrong with it.
RefusedCall refusedRun(const StudyRun& run, const std::string& title, const std::string& words);

struct OutputChoice {
    const TableFormat* format = nullptr;
    std::string file; // model name; "" for the standard output
};

// By --format and --output, before anything is read. Without either, text or else CSV. UsageError for a
// format that the command doesn't have or that lacks its file; RefusedCall for an output that leads to an
// input.
OutputChoice outputChoice(Files& service, const CommandLine& line, const std::vector<std::string>& files,
                          TableUse use = TableUse::analysis);

// The lines on --format and --output in a command's help.
std::string outputHelp(std::size_t indent, TableUse use = TableUse::analysis);

// The first of what is told of a workbook: the title, and the runs by name.
Taken takenFrom(const std::string& title, const std::vector<std::string>& runs);
std::vector<std::string> namesOf(const Study& study);

// Writes it whole or not at all.
void deliver(CommandCall& call, const OutputChoice& choice, const TableContent& content);
// On the standard output.
void showText(CommandCall& call, const std::function<void(TextPage&)>& text);
void writeOut(CommandCall& call, const std::function<void(OutputBytes&)>& write);

// One of the words that an option takes; the first where it is not given.
std::string chosenWord(const CommandLine& line, const std::string& option,
                       const std::vector<std::string>& words);

} // namespace korvel
