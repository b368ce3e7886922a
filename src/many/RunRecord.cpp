#include "many/RunRecord.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <nlohmann/json.hpp>

namespace korvel {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::array<const char*, 4> stateNames = {"started", "done", "failed", "stopped"};

struct TextMember {
    const char* key;
    std::string RunRecord::*member;
};

Json textOrNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

Json numberOrNull(std::optional<int> number) {
    return number ? Json(*number) : Json();
}

RunState stateNamed(const std::string& name) {
    const auto found = std::ranges::find(stateNames, name);
    if (found == stateNames.end()) throw std::out_of_range(name);
    return static_cast<RunState>(found - stateNames.begin());
}

std::string textOf(const Json& object, const char* key) {
    const auto found = object.find(key);
    return found == object.end() || found->is_null() ? std::string() : found->get<std::string>();
}

RunRecord recordOf(const Json& object) {
    RunRecord record;
    record.name = object.at("name").get<std::string>();
    record.type = object.at("type").get<int>();
    record.state = stateNamed(object.at("state").get<std::string>());
    const auto status = object.find("exit_status");
    if (status != object.end() && !status->is_null()) record.exitStatus = status->get<int>();
    for (const auto& [key, member] : {TextMember{"data_file", &RunRecord::dataFile},
                                      {"title", &RunRecord::title},
                                      {"started", &RunRecord::started},
                                      {"ended", &RunRecord::ended},
                                      {"host", &RunRecord::host},
                                      {"engine_sha256", &RunRecord::engineSum},
                                      {"data_sha256", &RunRecord::dataSum},
                                      {"results", &RunRecord::results},
                                      {"results_sha256", &RunRecord::resultsSum},
                                      {"korvel", &RunRecord::korvel},
                                      {"message", &RunRecord::message}})
        record.*member = textOf(object, key);
    return record;
}

} // namespace

std::string recordLine(const RunRecord& record) {
    const Json object = {{"name", record.name},
                         {"data_file", record.dataFile},
                         {"type", record.type},
                         {"title", textOrNull(record.title)},
                         {"state", stateNames[static_cast<std::size_t>(record.state)]},
                         {"exit_status", numberOrNull(record.exitStatus)},
                         {"started", textOrNull(record.started)},
                         {"ended", textOrNull(record.ended)},
                         {"host", textOrNull(record.host)},
                         {"engine_sha256", textOrNull(record.engineSum)},
                         {"data_sha256", textOrNull(record.dataSum)},
                         {"results", textOrNull(record.results)},
                         {"results_sha256", textOrNull(record.resultsSum)},
                         {"korvel", textOrNull(record.korvel)},
                         {"message", textOrNull(record.message)}};
    return object.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::optional<RunRecord> recordOfLine(std::string_view line) {
    try {
        return recordOf(Json::parse(line));
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

std::string timeNow() {
    using namespace std::chrono;
    const auto now = floor<milliseconds>(system_clock::now());
    const std::time_t seconds = system_clock::to_time_t(floor<std::chrono::seconds>(now));
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    std::array<char, 32> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &parts);
    const auto thousandths = static_cast<int>(now.time_since_epoch().count() % 1000);
    const std::string digits = std::to_string(1000 + thousandths);
    return std::string(text.data(), length) + '.' + digits.substr(1) + 'Z';
}

} // namespace korvel
