// Every line of what the engine writes for one river, beside what was reckoned and looked over once. The
// figures are the same on every machine.
#include "engine/EngineRun.h"
#include "engine/OutputFiles.h"
#include "platform/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

namespace korvel {

using namespace engine;

namespace {

const std::string dataFolder = std::string(KORVEL_SOURCES) + "/tests/data/engine/";

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// The box characters as signs of ASCII, so that the expected files can be read; lines as on this machine.
std::string readable(const std::string& text) {
    const std::string boxes = "\xDA\xC2\xBF\xC3\xB4\xC0\xC1\xD9\xC4\xB3\xC9\xBB\xC7\xB6\xC8\xBC\xCD\xBA";
    const std::string signs = "++++++++-|******=#";
    std::string plain;
    for (const char character : text) {
        const auto place = boxes.find(character);
        if (character != '\r') plain += place == std::string::npos ? character : signs[place];
    }
    return plain;
}

class ExpectedOutputs : public testing::Test {
  protected:
    ExpectedOutputs() { folder.put("WYRE.DAT", readFile(dataFolder + "WYRE.DAT")); }

    void run(int type) {
        folder.put("RUNDAT.TMP", "SINGLE\r\n" + folder.model() + "\\\r\n" + folder.model("WYRE.DAT") +
                                     "\r\n " + std::to_string(type) + " \r\n");
        std::ostringstream screen;
        EXPECT_EQ(runEngine(folder.path(), screen), 0) << screen.str();
    }
    // Without the folder, which is another one every time.
    std::string output(const std::string& extension) {
        std::string text = readable(folder.textOf("WYRE." + extension));
        const auto place = text.find(folder.model());
        return place == std::string::npos ? text : text.replace(place, folder.model().size(), "FOLDER");
    }
    static void expectAsIn(const std::string& name, const std::string& text) {
        const auto expected = linesOf(readFile(dataFolder + name)), lines = linesOf(text);
        ASSERT_EQ(lines.size(), expected.size()) << name;
        for (std::size_t i = 0; i < lines.size(); ++i)
            EXPECT_EQ(lines[i], expected[i]) << name << ", line " << i + 1;
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(ExpectedOutputs, AreWrittenLineByLineAfterGapFilling) {
    run(6);
    for (const char* extension : {"SGR", "OUT", "LOD", "SUM", "GAP", "SCN"})
        expectAsIn(std::string("gap-filled.") + extension, output(extension));
}

TEST_F(ExpectedOutputs, HoldTheStandardsOfEachRule) {
    run(6);
    for (const int type : {7, 8, 9}) {
        run(type);
        const std::string text = output("OUT");
        const auto begin = text.find("| Effluent standards");
        ASSERT_NE(begin, std::string::npos);
        expectAsIn("standards-" + std::to_string(type) + ".OUT",
                   text.substr(begin, text.find("\n\n", begin) + 1 - begin));
    }
}

TEST_F(ExpectedOutputs, TellEachRunTypesStepsOnTheScreen) {
    std::string screens;
    for (int type = 0; type <= 9; ++type) {
        run(type);
        screens += output("SCN") + "\n";
    }
    expectAsIn("screens.SCN", screens);
}

} // namespace korvel
