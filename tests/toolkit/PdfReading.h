// Reads PDF files back with the tools that everybody has.
#pragma once

#include <cstdio>
#include <memory>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

struct FoundWord { // inches from the sheet's top left
    std::string text;
    double left, top, right, bottom;
};

inline std::string outputOf(const std::string& command) {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    if (!pipe) throw std::runtime_error("can't run " + command);
    std::string output;
    char chunk[4096];
    while (const std::size_t count = std::fread(chunk, 1, sizeof chunk, pipe.get()))
        output.append(chunk, count);
    return output;
}

inline std::string pdfInfo(const std::string& path, const std::string& key) {
    const std::string info = outputOf("pdfinfo '" + path + "' 2>&1");
    std::smatch found;
    return std::regex_search(info, found, std::regex("(^|\n)" + key + ": *([^\n]*)")) ? found[2].str() : info;
}

inline std::string pdfText(const std::string& path) {
    return outputOf("pdftotext -layout '" + path + "' -");
}

inline std::vector<FoundWord> pdfWords(const std::string& path) {
    const std::string page = outputOf("pdftotext -bbox '" + path + "' -");
    const std::regex word("<word xMin=\"(.*?)\" yMin=\"(.*?)\" xMax=\"(.*?)\" yMax=\"(.*?)\">(.*?)</word>");
    std::vector<FoundWord> words;
    for (std::sregex_iterator found(page.begin(), page.end(), word), end; found != end; ++found) {
        const auto inches = [&](std::size_t group) { return std::stod((*found)[group]) / 72; };
        words.push_back({(*found)[5], inches(1), inches(2), inches(3), inches(4)});
    }
    return words;
}

// The first page as SVG.
inline std::string pdfAsSvg(const std::string& path) {
    return outputOf("pdftocairo -svg -l 1 '" + path + "' -");
}
