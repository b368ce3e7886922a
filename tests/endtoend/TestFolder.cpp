#include "endtoend/TestFolder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace korvel {

namespace fs = std::filesystem;

TestFolder::TestFolder() {
    static int count = 0;
    const std::string name = "korvel-endtoend-" + std::to_string(getpid()) + "-" + std::to_string(++count);
    m_path = (fs::temp_directory_path() / name).string();
    fs::create_directories(m_path);
}

TestFolder::~TestFolder() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

std::string TestFolder::path(const std::string& name) const {
    return name.empty() ? m_path : m_path + "/" + name;
}

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void write(const std::string& file, const std::string& content) {
    fs::create_directories(fs::path(file).parent_path());
    std::ofstream(file, std::ios::binary) << content;
}

void copy(const std::string& from, const std::string& to) {
    fs::create_directories(fs::path(to).parent_path());
    fs::copy_file(from, to, fs::copy_options::overwrite_existing);
}

std::string modelNameOf(const std::string& path) {
    std::string name = "Z:" + path;
    std::ranges::replace(name, '/', '\\');
    return name;
}

std::string inCapitals(std::string text) {
    for (char& letter : text) {
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    return text;
}

} // namespace korvel
