// Reads PDF files back with the tools that everybody has.
#pragma once

#include <algorithm>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvel {

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

// What stands between two marks, looked for from `from` on, which then stands behind it; "" where a mark is
// missing.
inline std::string between(const std::string& text, const std::string& begin, const std::string& end,
                           std::size_t& from) {
    const std::size_t start = text.find(begin, from);
    const std::size_t stop = start == std::string::npos ? start : text.find(end, start + begin.size());
    from = stop;
    return stop == std::string::npos ? "" : text.substr(start + begin.size(), stop - start - begin.size());
}

// All of pdfinfo's words where it has no such key.
inline std::string pdfInfo(const std::string& path, const std::string& key) {
    const std::string info = "\n" + outputOf("pdfinfo '" + path + "' 2>&1");
    std::size_t from = 0;
    const std::string value = between(info, "\n" + key + ":", "\n", from);
    return from == std::string::npos ? info
                                     : value.substr(std::min(value.find_first_not_of(' '), value.size()));
}

inline std::string pdfText(const std::string& path) {
    return outputOf("pdftotext -layout '" + path + "' -");
}

inline std::vector<FoundWord> pdfWords(const std::string& path) {
    const std::string page = outputOf("pdftotext -bbox '" + path + "' -");
    std::vector<FoundWord> words;
    std::size_t from = 0;
    const auto inches = [&](const std::string& name) {
        return std::stod("0" + between(page, name + "=\"", "\"", from)) / 72;
    };
    while ((from = page.find("<word ", from)) != std::string::npos) {
        const double left = inches("xMin"), top = inches("yMin"), right = inches("xMax"),
                     bottom = inches("yMax");
        words.push_back({between(page, ">", "</word>", from), left, top, right, bottom});
    }
    return words;
}

// The first page as SVG.
inline std::string pdfAsSvg(const std::string& path) {
    return outputOf("pdftocairo -svg -l 1 '" + path + "' -");
}

} // namespace korvel
