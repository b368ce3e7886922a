// An application folder and a data folder of a test's own.
#pragma once

#include "endtoend/Process.h"
#include "endtoend/TestFolder.h"

#include <string>
#include <vector>

namespace korvel {

class Installation {
  public:
    // With the engine that was built, and a settings file that names the data folder.
    Installation();

    std::string application(const std::string& file) const { return m_folder.path("application/" + file); }
    std::string data(const std::string& file) const { return m_folder.path("data/" + file); }
    std::string dataFolder() const { return m_folder.path("data"); }

    // A shell script in the engine's place. It waits where it calls `wait_for NAME`, until that name is
    // released.
    void putEngine(const std::string& script) const;
    void release(const std::string& name) const;

    // What lies in data/ is copied from the samples; a results file comes from one run of the engine.
    void putSample(const std::string& file) const;
    void putResults(const std::string& file) const;

    // The four lines for one run, as the engine reads them.
    std::string runControlFor(const std::string& dataFile, int runType) const;

    std::vector<std::string> korvel(std::vector<std::string> arguments = {}) const;
    Outcome runKorvel(const std::vector<std::string>& arguments, const Surroundings& surroundings = {}) const;
    Outcome runEngine(const std::string& dataFile) const;

  private:
    TestFolder m_folder;
};

} // namespace korvel
