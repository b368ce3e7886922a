// Files of one folder that are written whole and together: all of them beside their targets first, then
// renamed onto them. A failure before that leaves every old file as it was.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvel::engine {

struct FileProblem {
    std::string message;
};

// A FileProblem where it can't be read.
std::string readFile(const std::string& hostPath);
bool fileExists(const std::string& hostPath);

class OutputFiles {
  public:
    OutputFiles();
    ~OutputFiles(); // removes what was not committed
    OutputFiles(const OutputFiles&) = delete;
    OutputFiles& operator=(const OutputFiles&) = delete;

    void add(const std::string& hostPath, std::string_view bytes);
    void commit();

  private:
    struct Pending; // the system's own
    std::vector<Pending> m_pending;
};

} // namespace korvel::engine
