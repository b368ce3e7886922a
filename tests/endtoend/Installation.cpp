#include "endtoend/Installation.h"

#include <filesystem>
#include <stdexcept>

namespace korvel {

namespace fs = std::filesystem;

namespace {

const std::string builtFolder = KORVEL_APP_FOLDER;
const std::string samplesFolder = KORVEL_SAMPLES_FOLDER;
const char* const engineName = "korvelf157.exe";

// Both samples, run once for all tests.
const Installation& samplesWithResults() {
    static const Installation installation;
    static bool done = false;
    if (done) return installation;
    for (const std::string name : {"ALDER", "ALDER2"}) {
        installation.putSample(name + ".DAT");
        const Outcome outcome = installation.runEngine(name + ".DAT");
        if (outcome.status != 0) throw std::runtime_error("the engine failed: " + outcome.out);
    }
    done = true;
    return installation;
}

} // namespace

Installation::Installation() {
    fs::create_directories(dataFolder());
    write(application("MISC.TXT"), modelNameOf(dataFolder()) + "\r\n\r\nFalse\r\n");
    fs::create_symlink(builtFolder + "/" + engineName, application(engineName));
}

void Installation::putEngine(const std::string& script) const {
    const std::string engine = application(engineName);
    fs::remove(engine);
    write(engine,
          "#!/bin/sh\nwait_for() { while [ ! -e \"released-$1\" ]; do sleep 0.05; done; }\n" + script);
    fs::permissions(engine, fs::perms::owner_all);
}

void Installation::release(const std::string& name) const {
    write(application("released-" + name), "");
}

void Installation::putSample(const std::string& file) const {
    copy(samplesFolder + "/" + file, data(file));
}

void Installation::putResults(const std::string& file) const {
    copy(samplesWithResults().data(file), data(file));
}

std::string Installation::runControlFor(const std::string& dataFile, int runType) const {
    const std::string folder = inCapitals(modelNameOf(dataFolder())) + "\\";
    return "SINGLE\r\n" + folder + "\r\n" + folder + dataFile + "\r\n " + std::to_string(runType) + " \r\n";
}

std::vector<std::string> Installation::korvel(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {builtFolder + "/korvel", "--application-folder", application("")});
    return arguments;
}

Outcome Installation::runKorvel(const std::vector<std::string>& arguments,
                                const Surroundings& surroundings) const {
    return runProgram(korvel(arguments), surroundings);
}

Outcome Installation::runEngine(const std::string& dataFile) const {
    write(application("RUNDAT.TMP"), runControlFor(dataFile, 0));
    return runProgram({application(engineName)}, {application(""), {}});
}

} // namespace korvel
