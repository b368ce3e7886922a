// What the graph command's options ask for.
#pragma once

#include "commands/CommandLine.h"
#include "graphs/setup/GraphChoices.h"

#include <string>

namespace korvel {

struct GraphCall {
    std::string resultsFile; // model names
    std::string comparedFile;
    std::string outputFile;
    int width = 1600; // pixels of the drawing area
    int height = 900;
    double zoom = 1;
    int stepsRight = 0; // quarters of what is seen
    int stepsUp = 0;
    int largeTextMode = 1;
};

// The options that mean something without the results. UsageError for words that mean nothing.
GraphCall graphCallBy(const CommandLine& line);

// The options that choose from the loaded results, taken as the set-up form takes clicks.
void chooseBy(const CommandLine& line, GraphChoices& choices, ResultsDataSet& results);

} // namespace korvel
