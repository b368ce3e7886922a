#include "fakes/ExpectedFile.h"

#include "basic/Numbers.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace korvel {

namespace {

std::string place(double value) {
    return formatPattern(value, "0.0000");
}

std::string place(const DrawnPoint& point) {
    return place(point.x) + " " + place(point.y);
}

std::string penText(const Pen& pen) {
    std::string text = " pen " + shortestNumber(pen.width);
    if (pen.dash != Dash::solid) text += " dash " + std::to_string(static_cast<int>(pen.dash));
    if (pen.colour != Rgb{})
        text += " colour " + std::to_string(pen.colour.red) + " " + std::to_string(pen.colour.green) + " " +
                std::to_string(pen.colour.blue);
    return text;
}

std::string commandText(const DrawnLine& line) {
    return "line " + place(line.from) + " " + place(line.to) + penText(line.pen);
}

std::string commandText(const DrawnRun& run) {
    std::string text = "run";
    for (const DrawnPoint& point : run.points)
        text += " " + place(point);
    return text + penText(run.pen);
}

std::string commandText(const DrawnMarker& marker) {
    return "cross " + place(marker.centre) + " half " + place(marker.half) + penText(marker.pen);
}

std::string commandText(const DrawnBand& band) {
    std::string text = "band";
    for (const auto* edge : {&band.above, &band.below})
        for (const DrawnPoint& point : *edge)
            text += " " + place(point);
    return text + penText({band.fill.colour, 0, Dash::solid});
}

std::string commandText(const DrawnText& text) {
    return "text " + place(text.corner) + " " + place(text.width) + " " + place(text.height) + " " +
           text.font.name + " " + shortestNumber(text.font.size) + (text.font.bold ? " bold" : "") +
           (text.narrowing == 1 ? "" : " narrowed " + place(text.narrowing)) + " \"" + text.text + "\"";
}

} // namespace

std::string textOf(const Drawing& drawing) {
    std::string text = "page " + place(drawing.width) + " " + place(drawing.height) + "\n";
    for (const DrawnCommand& command : drawing.commands)
        text += std::visit([](const auto& each) { return commandText(each); }, command) + "\n";
    return text;
}

void expectSameAsFile(const std::string& text, const std::string& name) {
    const std::filesystem::path path = std::filesystem::path(TEST_DATA) / name;
    if (std::getenv("KORVEL_ACCEPT")) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
    }
    std::ifstream file(path, std::ios::binary);
    const std::string expected{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_EQ(text, expected) << path;
}

} // namespace korvel
