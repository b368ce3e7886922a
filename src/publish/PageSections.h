// The sections of a page, in their order.
#pragma once

#include "publish/PageHtml.h"
#include "publish/PageStudy.h"

#include <cstddef>
#include <string>
#include <vector>

namespace korvel {

void writeSummary(PageHtml& html, const PageStudy& study, const std::vector<PageSources>& sources);
// `rivers`: those that have panels, in order.
void writeNetwork(PageHtml& html, const PageStudy& study, const std::vector<std::size_t>& rivers);
void writeCompliance(PageHtml& html, const PageStudy& study);
void writeChanges(PageHtml& html, const PageStudy& study);
void writeSources(PageHtml& html, const PageStudy& study, const std::vector<PageSources>& sources);
void writeFit(PageHtml& html, const PageStudy& study);
void writeNotes(PageHtml& html, const PageStudy& study);
// What is too long to stand where it belongs.
void writeLongTexts(PageHtml& html);

// A section with its heading; the caller closes it.
void openSection(PageHtml& html, const std::string& id, const std::string& heading);
// A run's line as in the pictures, and its name.
void writeRunName(PageHtml& html, const PageStudy& study, std::size_t run);
void writeNote(PageHtml& html, const std::string& words);

struct BarPart {
    double share = 0; // 0 to 1
    std::string kind; // its class
};
// Only beside words that say the same.
void writeBar(PageHtml& html, const std::vector<BarPart>& parts);

} // namespace korvel
