#include "app/Settings.h"

#include "basic/LineOutput.h"
#include "basic/ListInput.h"
#include "basic/ModelName.h"
#include "basic/Text.h"
#include "global/GLOBAL.h"

namespace korvel {

namespace {

constexpr std::size_t bytesAtATime = 256; // the file has a few lines

// A line as a source of its own; the comma ends its field, which may be empty.
TextSource fieldOf(ListInput& lines) {
    return TextSource(std::string(lines.line()) + ",");
}

std::string textField(ListInput& lines) {
    TextSource source = fieldOf(lines);
    return std::string(ListInput(source, bytesAtATime).text());
}

int integerField(ListInput& lines) {
    TextSource source = fieldOf(lines);
    return ListInput(source, bytesAtATime).integer();
}

// A word in any case, or a number, of which only 0 is false.
bool flagOf(const std::string& field) {
    const std::string word = upperCase(field);
    if (word == "TRUE" || word == "FALSE") return word == "TRUE";
    TextSource source(field + ",");
    return ListInput(source, bytesAtATime).number() != 0;
}

std::string settingsFile(Platform& platform) {
    return inFolder(platform.machine.applicationFolder(), SettingsFileName);
}

} // namespace

Settings settingsOf(const std::string& text) {
    TextSource source(text);
    ListInput lines(source, bytesAtATime);
    Settings settings;
    settings.lastFolder = textField(lines);
    settings.displayLevel = integerField(lines);
    if (flagOf(textField(lines))) throw RunTimeError(errors::unsupportedProperty);
    return settings;
}

std::string settingsText(const std::string& lastFolder) {
    LineOutput output;
    output.line(lastFolder);
    output.line("");
    output.line("False");
    return output.text();
}

void ReadSettings(Platform& platform) {
    const Settings settings = settingsOf(platform.files.readAll(settingsFile(platform)));
    GLOBAL.LastFolder = settings.lastFolder;
    GLOBAL.mainForm.displayLevel = settings.displayLevel;
}

void SaveSettings(Platform& platform) {
    platform.files.writeWhole(settingsFile(platform), settingsText(GLOBAL.LastFolder));
}

} // namespace korvel
