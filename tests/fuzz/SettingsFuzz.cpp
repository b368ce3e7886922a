// The settings file.
#include "app/DisplayLevel.h"
#include "app/Settings.h"
#include "fakes/LetterByLetterInput.h"
#include "fuzz/Fuzzing.h"

namespace korvel {

namespace {

struct Reading {
    int failure = 0;
    std::string folder;
    int level = 0;
    bool operator==(const Reading&) const = default;
};

Reading read(const std::string& text) {
    Settings settings;
    const int failure = failureOf(
        {errors::overflow, errors::typeMismatch, errors::inputPastEndOfFile, errors::unsupportedProperty},
        [&] { settings = settingsOf(text); });
    return failure ? Reading{failure, "", 0} : Reading{0, settings.lastFolder, settings.displayLevel};
}

LetterByLetterInput fieldOf(const std::string& line) {
    return LetterByLetterInput(line + ",");
}

// A folder with a comma in its name is cut there when it is read back.
std::string asReadBack(const std::string& folder) {
    return fieldOf(folder).text();
}

void requireNestedMarks(int level) {
    const DisplayLevelMarks marks = displayLevelMarks(level);
    require(marks[0] == (level == 0), "level 0 alone shows all");
    require(marks[1] >= marks[2] && marks[2] >= marks[3], "each level holds the one before");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    const Reading settings = read(text);
    require(read(text) == settings, "reading twice gives the same");
    if (settings.failure) return 0;

    const std::vector<std::string> lines = plainLines(text);
    require(lines.size() >= 3, "three lines are read");
    require(settings.folder == fieldOf(lines[0]).text(), "the folder is the first line's field");
    require(settings.level == fieldOf(lines[1]).integer(), "the level is the second line's field");
    require(read(text + "\r\nmore\r\n") == settings, "what follows the third line means nothing");
    require(read(settingsText(settings.folder)) == Reading{0, asReadBack(settings.folder), 0},
            "what was written reads back");
    requireNestedMarks(settings.level);
    return 0;
}

} // namespace korvel
