#include "basic/Numbers.h"
#include "basic/Text.h"
#include "commands/ConsoleDialogs.h"
#include "commands/InfoReport.h"
#include "results/Statistics.h"

#include <ostream>

namespace korvel {

namespace {

std::string json(bool value) {
    return value ? "true" : "false";
}
std::string json(int value) {
    return std::to_string(value);
}
std::string json(double value) {
    return shortestNumber(value);
}

std::string escaped(char c) {
    static const char* const digits = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') return {'\\', c};
    if (code >= ' ') return {c};
    return std::string("\\u00") + digits[code / 16] + digits[code % 16];
}

std::string json(const std::string& text) {
    std::string quoted = "\"";
    for (char c : shownUtf8(text))
        quoted += escaped(c);
    return quoted + "\"";
}

std::string key(const char* name) {
    return "\"" + std::string(name) + "\": ";
}

// "[a, b, c]" of what `item` gives for each number from `first` to `last`.
template <typename Item>
std::string list(int first, int last, Item item) {
    std::string text = "[";
    for (int k = first; k <= last; ++k)
        text += (k > first ? ", " : "") + item(k);
    return text + "]";
}

template <typename T, typename Item>
std::string list(const std::vector<T>& items, Item item) {
    return list(0, static_cast<int>(items.size()) - 1,
                [&](int k) { return item(items[static_cast<std::size_t>(k)]); });
}

std::string jsonOf(const Message& message) {
    return "{" + key("text") + json(message.text) + ", " + key("icon") + json(iconName(message.icon)) + ", " +
           key("title") + json(message.title) + "}";
}

std::string jsonOf(const LoadReport& load) {
    const auto message = [](const Message& shown) { return jsonOf(shown); };
    return "{" + key("slot") + json(load.slot) + ", " + key("file") + json(load.file) + ", " +
           key("loadFailed") + json(load.loadFailed) + ", " + key("messages") + list(load.messages, message) +
           "}";
}

std::string jsonOfReach(const ResultsDataSet& results, int number) {
    return "{" + key("number") + json(number) + ", " + key("name") + json(results.reachNames[number]) + ", " +
           key("length") + json(results.reachLengths[number]) + ", " + key("next") +
           json(results.reachNext[number]) + "}";
}

std::string jsonOfPoint(const ResultsDataSet& results, int index) {
    return "[" + json(index) + ", " + json(results.pointReach[index]) + ", " +
           json(results.pointDistance[index]) + ", " + json(results.pointLabel[index]) + ", " +
           json(results.pointSide[index]) + ", " + json(results.pointFeatureType[index]) + "]";
}

std::string jsonOfValues(const ResultsDataSet& results, int slot, int point) {
    const ValueStore& values = results.values[slot];
    const int last = lastSeries(results);
    std::string text = "{";
    for (auto [field, name] : plainFieldNames) {
        const auto value = [&, field = field](int c) { return json(values.at(field, point, c)); };
        text += (text.size() > 1 ? ", " : "") + key(name) + list(0, last, value);
    }
    for (auto [field, name] : percentileFieldNames) {
        const auto levels = [&, field = field](int c) {
            return list(0, statistics::levels - 1,
                        [&](int m) { return json(values.at(field, point, c, m)); });
        };
        text += ", " + key(name) + list(0, last, levels);
    }
    return text + "}";
}

void printPoints(const ResultsDataSet& results, std::ostream& out) {
    out << ",\n " << key("points") << "[";
    for (int i = 1; i <= results.pointCount; ++i)
        out << (i > 1 ? ",\n  " : "") << jsonOfPoint(results, i);
    out << "]";
}

void printSlot(const ResultsDataSet& results, int slot, std::ostream& out) {
    out << "\"" << slot << "\": {";
    for (int i = 1; i <= results.pointCount; ++i)
        out << (i > 1 ? ",\n  " : "") << "\"" << i << "\": " << jsonOfValues(results, slot, i);
    out << "}";
}

void printValues(const ResultsDataSet& results, std::ostream& out) {
    out << ",\n " << key("values") << "{";
    bool any = false;
    for (int slot : {0, 1}) {
        if (!results.values[slot].everWritten()) continue;
        if (any) out << ",\n  ";
        printSlot(results, slot, out);
        any = true;
    }
    out << "}";
}

void printHeader(const ResultsDataSet& results, std::ostream& out) {
    const int last = lastSeries(results);
    out << ",\n " << key("resultsTitle") << json(results.resultsTitle);
    out << ", " << key("percentileMode") << results.percentileMode;
    out << ", " << key("percentileLevel") << json(results.percentileLevel);
    out << ", " << key("percentileCaption") << json(results.percentileCaption);
    out << ", " << key("determinandCount") << results.determinandCount;
    out << ",\n " << key("determinandTypes")
        << list(1, last / 2, [&](int d) { return json(results.determinandTypes[d]); });
    out << ", " << key("determinandStatistics")
        << list(1, last / 2, [&](int d) { return json(results.determinandStatistics[d]); });
    out << ",\n " << key("seriesCount") << results.seriesCount;
    out << ", " << key("seriesNames") << list(0, last, [&](int c) { return json(results.seriesNames[c]); });
    out << ",\n " << key("seriesMaximum")
        << list(0, last, [&](int c) { return json(results.seriesMaximum[c]); });
}

} // namespace

void printInfoJson(const InfoReport& report, std::ostream& out) {
    const ResultsDataSet& results = report.results;
    out << "{" << key("loads") << list(report.loads, [](const LoadReport& load) { return jsonOf(load); });
    printHeader(results, out);
    out << ",\n " << key("reachCount") << results.reachCount << ", " << key("reachOrder")
        << list(results.reachOrder, [](int number) { return json(number); });
    out << ",\n " << key("reaches")
        << list(results.reachOrder, [&](int number) { return jsonOfReach(results, number); });
    out << ",\n " << key("pointCount") << results.pointCount << ", " << key("hasInterpolatedPoints")
        << json(results.hasInterpolatedPoints) << ", " << key("plotInterpolatedPoints")
        << json(report.plotInterpolatedPoints);
    if (report.withPoints) printPoints(results, out);
    if (report.withValues) printValues(results, out);
    out << "}\n";
}

} // namespace korvel
