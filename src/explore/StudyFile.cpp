#include "explore/StudyFile.h"

#include "basic/DiskNames.h"
#include "basic/Text.h"
#include "explore/PathChoice.h"
#include "study/SeriesValues.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace korvel {

namespace {

using Json = nlohmann::ordered_json;

constexpr int version = 1;
constexpr const char* versionKey = "korvel_study";
constexpr std::array<const char*, 3> viewNames = {"values", "change", "ratio"};
constexpr std::array<const char*, 2> scaleNames = {"linear", "logarithmic"};

// What is wrong, and the member in whose line it stands.
struct WrongMember : std::runtime_error {
    WrongMember(std::string named, const std::string& what)
        : std::runtime_error(what), key(std::move(named)) {}
    std::string key;
};

std::size_t lineAt(const std::string& text, std::size_t byte) {
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(byte, text.size()));
    return 1 + static_cast<std::size_t>(std::count(text.begin(), end, '\n'));
}

std::string problemAt(const std::string& text, std::size_t byte, const std::string& what) {
    return "line " + std::to_string(lineAt(text, byte)) + ": " + what;
}

template <typename T>
T valueOf(const Json& object, const std::string& key, T without) {
    const auto found = object.find(key);
    if (found == object.end() || found->is_null()) return without;
    try {
        return found->get<T>();
    } catch (const nlohmann::json::exception&) {
        throw WrongMember(key, "\"" + key + "\" is not what it should be");
    }
}

template <typename Names>
int namedValue(const Json& object, const std::string& key, const Names& names) {
    const std::string name = valueOf(object, key, std::string(names.front()));
    const auto found = std::ranges::find(names, name);
    if (found == names.end()) throw WrongMember(key, "\"" + name + "\" is no " + key);
    return static_cast<int>(found - names.begin());
}

const Json& objectIn(const Json& document, const std::string& key) {
    static const Json none = Json::object();
    const auto found = document.find(key);
    if (found == document.end()) return none;
    if (!found->is_object()) throw WrongMember(key, "\"" + key + "\" is not what it should be");
    return *found;
}

void checkVersion(const Json& document) {
    if (!document.is_object() || !document.contains(versionKey)) throw WrongMember("", "this is no study");
    const int written = valueOf(document, versionKey, 0);
    if (written > version)
        throw WrongMember(versionKey, "the study was saved by a later version of the program");
    if (written < 1) throw WrongMember(versionKey, "there is no such version of studies");
}

StudyFileRun runOf(const Json& run, const std::filesystem::path& folder) {
    const std::string file = run.is_object() ? valueOf(run, "file", std::string()) : std::string();
    if (file.empty()) throw WrongMember("runs", "a run has no file");
    return {(folder / file).lexically_normal().string(), valueOf(run, "hidden", false)};
}

std::vector<StudyFileRun> runsOf(const Json& document, const std::filesystem::path& folder) {
    std::vector<StudyFileRun> runs;
    const auto found = document.find("runs");
    if (found == document.end()) return runs;
    if (!found->is_array()) throw WrongMember("runs", "\"runs\" is not what it should be");
    for (const Json& run : *found)
        runs.push_back(runOf(run, folder));
    if (runs.size() > MaxRuns)
        throw WrongMember("runs", "there are more than " + std::to_string(MaxRuns) + " runs");
    return runs;
}

std::optional<ExploreStretch> stretchOf(const Json& document) {
    const auto ends = valueOf(document, "visible", std::vector<double>());
    if (ends.empty()) return {};
    if (ends.size() != 2 || !(ends[0] < ends[1]))
        throw WrongMember("visible", "\"visible\" is no stretch of the path");
    return ExploreStretch{ends[0], ends[1]};
}

StudyFile studyOf(const Json& document, const std::string& folder) {
    checkVersion(document);
    StudyFile study;
    study.runs = runsOf(document, folder);
    const Json& path = objectIn(document, "path");
    study.from = valueOf(path, "from", 0);
    study.to = valueOf(path, "to", 0);
    study.visible = stretchOf(document);
    study.view = static_cast<ExploreView>(namedValue(document, "view", viewNames));
    study.series = valueOf(document, "series", std::vector<std::string>());
    const auto statistic = statisticNamed(valueOf(document, "statistic", std::string("mean")));
    if (!statistic) throw WrongMember("statistic", "there is no such statistic");
    study.statistic = *statistic;
    study.scale = static_cast<ScaleKind>(namedValue(document, "scale", scaleNames));
    study.fromZero = valueOf(document, "from_zero", true);
    const Json& show = objectIn(document, "show");
    study.limits = valueOf(show, "limits", true);
    study.targets = valueOf(show, "targets", true);
    study.observed = valueOf(show, "observed", true);
    study.interpolated = valueOf(show, "interpolated", true);
    const auto low = document.find("low_is_bad");
    if (low != document.end() && !low->is_null())
        study.lowIsBad = valueOf(document, "low_is_bad", std::vector<std::string>());
    study.origin = document.dump(-1, ' ', false, Json::error_handler_t::replace);
    return study;
}

// With what else was written of this run.
Json runJson(const StudyFileRun& run, const Json& before, const std::filesystem::path& folder) {
    const std::string file = std::filesystem::path(run.file).lexically_relative(folder).string();
    Json json = {{"file", file}};
    if (before.is_array())
        for (const Json& there : before)
            if (there.is_object() && there.value("file", "") == file) json = there;
    json["hidden"] = run.isHidden;
    return json;
}

std::filesystem::path plainFolder(const std::string& folder) {
    const std::filesystem::path path = std::filesystem::path(folder).lexically_normal();
    return path.has_filename() ? path : path.parent_path();
}

std::vector<std::string> namesOfDeterminands(const ResultsDataSet& results, const std::set<int>& numbers) {
    std::vector<std::string> names;
    for (const int number : numbers)
        names.push_back(shownUtf8(determinandName(results, number)));
    return names;
}

template <typename T>
bool holds(const std::vector<T>& list, const T& value) {
    return std::ranges::find(list, value) != list.end();
}

void takeSeries(ExploreState& state, const std::vector<std::string>& names) {
    const ResultsDataSet& results = state.study->base().results();
    std::vector<int> series;
    for (int each = 0; each <= results.seriesCount; ++each)
        if (holds(names, shownUtf8(results.seriesNames[each]))) series.push_back(each);
    if (!series.empty()) state.series = std::move(series);
}

void takeLowIsBad(ExploreState& state, const std::vector<std::string>& names) {
    const ResultsDataSet& results = state.study->base().results();
    std::set<int> numbers;
    for (int d = 1; d <= results.determinandCount; ++d)
        if (holds(names, shownUtf8(determinandName(results, d)))) numbers.insert(d);
    state.lowIsBad = std::move(numbers);
}

// The runs that could be read stand in the file's order.
void takeHidden(ExploreState& state, const std::vector<StudyFileRun>& runs) {
    state.hidden.clear();
    std::size_t run = 0;
    for (const StudyFileRun& saved : runs) {
        if (run == state.study->runs().size()) return;
        if (hostPathOf(state.study->runs()[run].file->file) != saved.file) continue;
        if (saved.isHidden) state.hidden.insert(run);
        ++run;
    }
}

} // namespace

ReadStudyFile readStudyFile(const std::string& text, const std::string& folder) {
    try {
        return {studyOf(Json::parse(text), plainFolder(folder)), ""};
    } catch (const nlohmann::json::parse_error& error) {
        return {{}, problemAt(text, error.byte, "this can't be read")};
    } catch (const WrongMember& wrong) {
        const std::size_t byte = wrong.key.empty() ? 0 : text.find("\"" + wrong.key + "\"");
        return {{}, problemAt(text, byte == std::string::npos ? 0 : byte, wrong.what())};
    } catch (const nlohmann::json::exception&) {
        return {{}, problemAt(text, 0, "this can't be read")};
    }
}

std::string studyFileText(const StudyFile& study, const std::string& folder) {
    Json document = Json::parse(study.origin);
    document[versionKey] = version;
    Json runs = Json::array();
    const Json before = document.contains("runs") ? document["runs"] : Json();
    for (const StudyFileRun& run : study.runs)
        runs.push_back(runJson(run, before, plainFolder(folder)));
    document["runs"] = std::move(runs);
    document["path"]["from"] = study.from;
    document["path"]["to"] = study.to;
    document["visible"] = study.visible ? Json{study.visible->from, study.visible->to} : Json();
    document["view"] = viewNames[static_cast<std::size_t>(study.view)];
    document["series"] = study.series;
    document["statistic"] = nameOf(study.statistic);
    document["scale"] = scaleNames[static_cast<std::size_t>(study.scale)];
    document["from_zero"] = study.fromZero;
    Json& show = document["show"];
    show["limits"] = study.limits;
    show["targets"] = study.targets;
    show["observed"] = study.observed;
    show["interpolated"] = study.interpolated;
    document["low_is_bad"] = study.lowIsBad ? Json(*study.lowIsBad) : Json();
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

StudyFile studyFileOf(const ExploreState& state, const std::string& origin) {
    StudyFile study;
    study.origin = origin;
    study.from = state.from;
    study.to = state.to;
    study.visible = state.visible;
    static_cast<ShownValues&>(study) = state;
    if (state.isEmpty()) return study;
    const ResultsDataSet& results = state.study->base().results();
    for (std::size_t run = 0; run < state.study->runs().size(); ++run)
        study.runs.push_back({hostPathOf(state.study->runs()[run].file->file), !state.isShown(run)});
    for (const int series : state.series)
        study.series.push_back(shownUtf8(results.seriesNames[series]));
    if (state.lowIsBad) study.lowIsBad = namesOfDeterminands(results, *state.lowIsBad);
    return study;
}

void showAs(ExploreState& state, const StudyFile& study) {
    static_cast<ShownValues&>(state) = study;
    if (state.isEmpty()) return;
    takeHidden(state, study.runs);
    takeSeries(state, study.series);
    if (study.lowIsBad) takeLowIsBad(state, *study.lowIsBad);
    const PathEnds ends{study.from, study.to};
    if (!isPath(*state.study->base().file, *state.network, ends)) return;
    state.from = ends.from;
    state.to = ends.to;
    state.visible = study.visible;
}

bool isStudyFile(const std::string& file) {
    const std::string extension = ".korvel-study";
    return lowerCase(last(file, extension.size())) == extension;
}

} // namespace korvel
