#include "runs/DataFileName.h"

#include "basic/ModelName.h"
#include "basic/Text.h"

namespace korvel {

namespace {

constexpr std::string_view extension = ".DAT";

Message refusal(const char* text, const char* title) {
    return {text, title, Icon::exclamation, Buttons::ok};
}

} // namespace

std::string dataFileName(std::string_view chosen) {
    return upperCase(trim(chosen));
}

Message refusedExtension() {
    return refusal("The input data file extension must be .DAT.", "Input data file");
}

DataFileVerdict dataFileToSaveAs(std::string_view chosen) {
    const std::string name = dataFileName(chosen);
    const std::string file = fileOf(name);
    if (last(file, extension.size()) != extension) return refusedExtension();
    return DataFileNames{name, folderOf(name), withoutLast(file, extension.size())};
}

DataFileVerdict dataFileToOpen(std::string_view chosen) {
    DataFileVerdict verdict = dataFileToSaveAs(chosen);
    const DataFileNames* names = std::get_if<DataFileNames>(&verdict);
    if (!names) return verdict;
    if (names->folder.size() > LongestDataFolder)
        return refusal("File path name too long. Locate data file in higher level folder", "Input Data File");
    if (names->base.size() + extension.size() > LongestDataFile)
        return refusal("File name too long. Must be not more than 30 characters,", "Input Data File");
    return verdict;
}

std::string resultsFileName(std::string_view folder, std::string_view base) {
    return std::string(folder) + trim(base) + ".SGR";
}

} // namespace korvel
