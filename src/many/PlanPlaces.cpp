#include "many/PlanPlaces.h"

#include "basic/RunTimeError.h"
#include "basic/Text.h"

#include <filesystem>

namespace korvel {

namespace {

constexpr std::string_view planEnding = ".csv";

std::string absolute(const std::string& path) {
    std::error_code withoutFolder; // the current one is gone
    std::string whole = std::filesystem::absolute(path, withoutFolder).lexically_normal().string();
    if (withoutFolder) throw RunTimeError(errors::pathNotFound);
    return whole;
}

std::string folderNameOf(std::string_view runName) {
    std::string name;
    for (const char character : runName) {
        if (character == '/')
            name += "%2F";
        else if (character == '%')
            name += "%25";
        else if (character == '.' && name.empty())
            name += "%2E"; // names that begin with a point are ours, or mean other folders
        else
            name += character;
    }
    return name;
}

} // namespace

bool isPlan(const std::string& file) {
    return lowerCase(last(file, planEnding.size())) == planEnding;
}

PlanPlaces placesOfPlan(const std::string& plan) {
    PlanPlaces places;
    places.plan = absolute(plan);
    const auto slash = places.plan.rfind('/');
    places.folder = slash == 0 ? "/" : places.plan.substr(0, slash);
    const std::string stem = isPlan(places.plan) ? withoutLast(places.plan, planEnding.size()) : places.plan;
    places.record = stem + ".runs.jsonl";
    places.runs = stem + ".runs";
    places.cluster = places.runs + "/.slurm";
    return places;
}

std::string privateFolderOf(const PlanPlaces& places, std::string_view runName) {
    return places.runs + '/' + folderNameOf(runName);
}

} // namespace korvel
