// A small made-up river for the tests of reports, and what they have in common.
#pragma once

#include "basic/ByteSource.h"
#include "fakes/ResultsFileBuilder.h"
#include "reports/ReportChoices.h"
#include "results/ResultsReader.h"

#include <string>

namespace korvel {

// Two reaches, two determinands, a feature of every kind that a report treats its own way.
inline ResultsFileBuilder smallRiver() {
    ResultsFileBuilder river;
    river.title("River Alder, base run").mode(2).determinand(1, "BOD").determinand(2, "Ammonia..");
    river.reach(1, "Upper Mill", 12.5, 3).reach(12, "Lower Mill", 7, 0);
    river.point(1, 0, "U/S Head of Alder", 0);
    river.point(1, 0, "U/S Mill Weir", 0);
    river.point(1, 1.5, "D/S Mill Weir", 1);
    river.point(1, 2, "Interpolated", 99);
    river.point(1, 3, "U/S Old Works", 10).setAll(12.345);
    river.pointLine("1,4,Gauge by \"old\" mill***,0,4").setAll(0.56785);
    river.point(12, 0, "U/S Confluence", 0).setAll(123.45);
    river.point(12, 5, "", 1).setAll(-0.25);
    river.point(12, 7, "D/S", 0).setAll(0.0012345);
    return river;
}

inline void loadInto(ResultsDataSet& results, const ResultsFileBuilder& file) {
    TextSource source(file.text());
    prepareLoad(results, 0);
    readResults(source, results, 0, {[](const Message&) {}, {}});
}

struct LoadedRiver {
    explicit LoadedRiver(const ResultsFileBuilder& file = smallRiver()) {
        loadInto(results, file);
        FillReportLists(choices, results);
    }
    ResultsDataSet results;
    ReportChoices choices;
};

inline std::string lines(std::initializer_list<std::string> all) {
    std::string text;
    for (const std::string& line : all)
        text += line + "\r\n";
    return text;
}

} // namespace korvel
