// A folder of a test's own, gone at its end, and the files in it.
#pragma once

#include <string>

namespace korvel {

class TestFolder {
  public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::string path(const std::string& name = "") const;

  private:
    std::string m_path;
};

std::string contentOf(const std::string& file);
void write(const std::string& file, const std::string& content);
void copy(const std::string& from, const std::string& to);

// "/home/ann" as the program's files name it: "Z:\home\ann".
std::string modelNameOf(const std::string& path);
std::string inCapitals(std::string text); // a-z alone

} // namespace korvel
