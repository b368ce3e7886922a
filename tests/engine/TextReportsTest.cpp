#include "SmallCatchment.h"

#include "basic/LineOutput.h"
#include "engine/BoxTable.h"
#include "engine/TextReports.h"

#include <gtest/gtest.h>

#include <sstream>

namespace korvel {

using namespace engine;

namespace {

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        EXPECT_TRUE(line.ends_with('\r'));
        lines.push_back(line.substr(0, line.size() - 1));
    }
    return lines;
}

// The box characters that listings draw as lines.
const std::string drawn = "\xDA\xC2\xBF\xC3\xB4\xC0\xC1\xD9\xC4\xB3\xC9\xBB\xC7\xB6\xC8\xBC\xCD";

bool isDrawnOrPlain(char character) {
    return (character >= ' ' && character <= '~') || drawn.find(character) != std::string::npos;
}

struct Reports {
    Reports() : catchment(smallCatchment::parsed(smallCatchment::variableText())) {
        const ReachProgress quiet = [](std::size_t, const Reach&) {};
        const RiverModel model(catchment);
        model.search(GapSearch::flows, fills, quiet);
        model.search(GapSearch::qualities, fills, quiet);
        EffluentStandards standards(catchment, StandardsRule::meetTargets);
        result = model.run(fills, &standards, quiet);
    }
    Report report() const { return {catchment, result, fills, "Small River"}; }

    Catchment catchment;
    GapFills fills;
    ModelResult result;
};

} // namespace

TEST(BoxTable, PutsTextLeftAndNumbersRight) {
    BoxTable table("Title", {"Place", "km"});
    table.row({"A", "1.5"});
    table.row({"Longer", "10.25"});
    LineOutput output;
    table.print(output);
    EXPECT_EQ(linesOf(output.text()),
              (std::vector<std::string>{
                  "\xDA\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xBF",
                  "\xB3 Title          \xB3",
                  "\xC3\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC2\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xB4",
                  "\xB3 Place  \xB3    km \xB3",
                  "\xC3\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xB4",
                  "\xB3 A      \xB3   1.5 \xB3", "\xB3 Longer \xB3 10.25 \xB3",
                  "\xC0\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xC1\xC4\xC4\xC4\xC4\xC4\xC4\xC4\xD9", ""}));
}

TEST(TextReports, UseOnlyCharactersThatListingsDraw) {
    const Reports reports;
    for (const std::string& text : {detailedOutput(reports.report()), loadReport(reports.report()),
                                    sourcesAndSinksReport(reports.report())})
        for (const std::string& line : linesOf(text))
            for (const char character : line)
                EXPECT_TRUE(isDrawnOrPlain(character)) << line;
}

TEST(TextReports, TellGapFillingStandardsReachesAndLoads) {
    const Reports reports;
    const std::string detailed = detailedOutput(reports.report());
    for (const char* text :
         {"DETAILED OUTPUT", "Small River", "Gap filling of river flows", "Gap filling of water quality",
          "Effluent standards", "Reach 2: Lower, 10.0 km - BOD (mg/l)", "D/S Works"})
        EXPECT_NE(detailed.find(text), std::string::npos) << text;
    const std::string loads = loadReport(reports.report());
    for (const char* text : {"REPORT ON LOADS", "End of reach", "Works", "Intake"})
        EXPECT_NE(loads.find(text), std::string::npos) << text;
    const std::string balance = sourcesAndSinksReport(reports.report());
    for (const char* text :
         {"SOURCES AND SINKS", "whole catchment", "Sewage discharges", "Decay", "To downstream"})
        EXPECT_NE(balance.find(text), std::string::npos) << text;
}

} // namespace korvel
