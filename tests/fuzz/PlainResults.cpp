#include "fuzz/PlainResults.h"

#include "basic/Numbers.h"
#include "basic/Text.h"
#include "fakes/LetterByLetterInput.h"
#include "results/PointLabels.h"

namespace korvel {

namespace {

std::string columns(const std::string& line, std::size_t first, std::size_t count) {
    return line.size() <= first ? "" : line.substr(first, count);
}

PlainReach reachOf(const std::string& line) {
    return {roundHalfToEven(leadingNumber(columns(line, 0, 4))), columns(line, 5, 16),
            leadingNumber(columns(line, 22, 10)), roundHalfToEven(leadingNumber(columns(line, 33, 4)))};
}

void requireWithin(int number, int low, int high) {
    if (number < low || number > high) throw RunTimeError(errors::subscriptOutOfRange);
}

void readHeader(LetterByLetterInput& input, PlainResults& results) {
    results.title = input.line();
    results.percentileMode = input.integer();
    const int determinands = input.integer();
    requireWithin(determinands, 0, 0x7FFFFFFF);
    for (int d = 1; d <= determinands; ++d) {
        PlainDeterminand determinand;
        determinand.type = input.integer();
        determinand.name = input.text();
        determinand.statistic = input.integer();
        requireWithin(d, 1, MaxDeterminands);
        results.determinands.push_back(determinand);
    }
    const int reaches = input.integer();
    requireWithin(reaches, 0, 0x7FFFFFFF);
    for (int j = 0; j < reaches; ++j) {
        results.reaches.push_back(reachOf(input.line()));
        requireWithin(results.reaches.back().number, 0, MaxReachNumber);
    }
}

void readGroup(LetterByLetterInput& input, int count, std::vector<double>& values) {
    input.text(); // the caption
    for (int k = 0; k < count; ++k)
        values.push_back(input.number());
}

bool namesItsReach(const std::string& label) {
    bool asked = false;
    makePointLabel(withoutLast(label, 3), [&] {
        asked = true;
        return std::string();
    });
    return asked;
}

PlainPoint readPoint(LetterByLetterInput& input, std::size_t determinands) {
    PlainPoint point;
    point.reach = input.integer();
    point.distance = input.number();
    point.label = input.text();
    input.skip();
    point.featureType = input.integer();
    readGroup(input, 4, point.values);
    readGroup(input, 4, point.values);
    for (std::size_t d = 0; d < determinands; ++d)
        for (const int count : {12, 12, 4, 4, 1, 1})
            readGroup(input, count, point.values);
    if (namesItsReach(point.label)) requireWithin(point.reach, 0, MaxReachNumber);
    return point;
}

} // namespace

std::optional<PlainResults> plainResults(const std::string& text) {
    LetterByLetterInput input(text);
    PlainResults results;
    try {
        readHeader(input, results);
        while (!input.atEnd())
            results.points.push_back(readPoint(input, results.determinands.size()));
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
    return results;
}

} // namespace korvel
