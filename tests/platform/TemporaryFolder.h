// A folder of a test's own, open to every user, gone with all that is in it at the end.
#pragma once

#include "basic/ModelName.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace korvel {

class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "korvel-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        m_path = pattern;
        std::filesystem::permissions(m_path, std::filesystem::perms::all);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string path(const std::string& name = "") const {
        return name.empty() ? m_path : m_path + "/" + name;
    }
    std::string model(const std::string& name = "") const { return modelNameOfHostPath(path(name)); }

    void put(const std::string& name, const std::string& text = "") const {
        std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
        std::ofstream(path(name), std::ios::binary) << text;
    }
    void makeFolder(const std::string& name) const { std::filesystem::create_directories(path(name)); }
    std::string textOf(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    long entries() const {
        return std::distance(std::filesystem::directory_iterator(m_path),
                             std::filesystem::directory_iterator());
    }

  private:
    std::string m_path;
};

} // namespace korvel
