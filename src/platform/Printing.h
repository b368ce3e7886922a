// What the user is told about paper.
#pragma once

#include "platform/Platform.h"

namespace korvel {

// The printer did not take a document (error 482).
Message printerRefused();

// Hands a job's document over, and tells where it went where the user could not know.
void finishPrinting(Platform& platform, PrintJob& job);

// "Z:\DATA\RIVER-graph.pdf" for "Z:\DATA\RIVER.SGR" and "-graph.pdf".
std::string besideResults(const std::string& resultsFile, const std::string& ending);

} // namespace korvel
