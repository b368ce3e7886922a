#include "many/RowRun.h"

#include "basic/DiskNames.h"
#include "basic/RunTimeError.h"
#include "basic/Sha256.h"
#include "basic/Text.h"
#include "many/PrivateFolder.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace korvel {

namespace fs = std::filesystem;

namespace {

constexpr const char* outputFile = "output.txt"; // what the engine says
constexpr std::size_t longestMessage = 300;
constexpr std::int64_t clockSlack = 2000000000; // nanoseconds between the clocks of two file servers

std::string hostName() {
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

std::string inSameFolder(const std::string& path, const std::string& file) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? file : path.substr(0, slash + 1) + file;
}

// The name of the results as it stands on the disk, beside the data file.
std::string resultsPath(const PlannedRun& run) {
    const std::string folder = run.dataPath.substr(0, run.dataPath.rfind('/'));
    return folder + '/' + spellingOnDisk(folder, run.files.base + ".SGR");
}

// The end of what the engine said: its last line that isn't blank.
std::string lastWords(const std::string& path) {
    constexpr std::streamoff tail = 4096;
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const std::streamoff size = file.tellg();
    file.seekg(std::max<std::streamoff>(0, size - tail));
    std::string last;
    for (std::string line; std::getline(file, line);) {
        line = line.substr(0, line.find('\r'));
        if (!trim(line).empty()) last = trim(line);
    }
    return firstShown(shownUtf8(last), longestMessage);
}

// A run in the making: what it found before the engine was started, to compare with afterwards.
class RowRun {
  public:
    RowRun(const RunSetting& setting, const PlannedRun& run, RunRecord record)
        : m_setting(setting),
          m_run(run),
          m_record(std::move(record)),
          m_folder(privateFolderOf(setting.places, run.name)) {}

    RunRecord carryOut(EngineRun& engine) {
        try {
            prepare();
            takeEnd(engine.run(m_folder + '/' + m_setting.rules.engineFile, m_folder,
                               m_folder + '/' + outputFile));
        } catch (const RunTimeError& error) {
            fail(error.description + ".");
        }
        m_record.ended = timeNow();
        if (m_record.state == RunState::done) removePrivateFolder(m_folder);
        return std::move(m_record);
    }

  private:
    void prepare() {
        makePrivateFolder(m_folder, m_setting.engineFiles, m_setting.rules.runControlFile,
                          m_setting.rules.runControlText(m_run.files, m_run.type));
        m_begun = stampOf(m_folder + '/' + m_setting.rules.runControlFile).modified;
        m_resultsBefore = stampOf(resultsPath(m_run));
        m_engineBefore = stampOf(m_setting.engine);
        m_dataBefore = stampOf(m_run.dataPath);
        m_record.dataSum = sha256OfFile(m_run.dataPath);
        if (m_engineBefore != m_setting.engineStamp) m_record.engineSum = sha256OfFile(m_setting.engine);
    }

    void takeEnd(const EngineEnd& end) {
        m_record.exitStatus = end.status;
        if (end.stopped) {
            m_record.state = RunState::stopped;
            m_record.message = "Stopped.";
        } else if (!end.status) {
            fail(end.problem);
        } else if (*end.status != 0) {
            fail("The engine ended with status " + std::to_string(*end.status) + ": " +
                 lastWords(m_folder + '/' + outputFile));
        } else {
            takeResults();
        }
    }

    void takeResults() {
        const std::string path = resultsPath(m_run);
        const FileStamp stamp = stampOf(path);
        if (!stamp.isThere) return fail("The engine has left no results.");
        if (stamp == m_resultsBefore || stamp.modified < m_begun - clockSlack)
            return fail("The engine has left the results of an earlier run.");
        if (const auto problem = whyNotWhole(path)) return fail(*problem);
        if (stampOf(m_run.dataPath) != m_dataBefore && sha256OfFile(m_run.dataPath) != m_record.dataSum)
            return fail("The data file changed while the model ran on it.");
        if (stampOf(m_setting.engine) != m_engineBefore &&
            sha256OfFile(m_setting.engine) != m_record.engineSum)
            return fail("The engine was replaced while it ran.");
        m_record.results = inSameFolder(m_run.dataFile, path.substr(path.rfind('/') + 1));
        m_record.resultsSum = sha256OfFile(path);
        m_record.state = RunState::done;
    }

    void fail(std::string message) {
        m_record.state = RunState::failed;
        m_record.message = std::move(message);
    }

    const RunSetting& m_setting;
    const PlannedRun& m_run;
    RunRecord m_record;
    std::string m_folder;
    std::int64_t m_begun = 0; // when the run-control file was written
    FileStamp m_resultsBefore;
    FileStamp m_engineBefore;
    FileStamp m_dataBefore;
};

} // namespace

RunSetting runSetting(const PlanPlaces& places, const EngineRules& rules,
                      const std::string& applicationFolder, const std::string& korvelVersion) {
    RunSetting setting;
    setting.places = places;
    setting.rules = rules;
    setting.applicationFolder = applicationFolder;
    setting.engineFiles = filesOfEngine(applicationFolder, rules);
    setting.engine = applicationFolder + '/' + rules.engineFile;
    setting.engineStamp = stampOf(setting.engine);
    setting.engineSum = sha256OfFile(setting.engine);
    setting.host = hostName();
    setting.korvel = korvelVersion;
    return setting;
}

RunRecord startedRecord(const RunSetting& setting, const PlannedRun& run) {
    RunRecord record;
    record.name = run.name;
    record.dataFile = run.dataFile;
    record.type = run.type;
    record.title = run.title;
    record.state = RunState::started;
    record.started = timeNow();
    record.host = setting.host;
    record.engineSum = setting.engineSum;
    record.korvel = setting.korvel;
    return record;
}

RunRecord carryOut(const RunSetting& setting, const PlannedRun& run, RunRecord record, EngineRun& engine) {
    return RowRun(setting, run, std::move(record)).carryOut(engine);
}

} // namespace korvel
