#include "toolkit/process/EngineWindowCall.h"

#include <QFile>

#include <charconv>

namespace korvel {

namespace {

const char* const windowOption = "--engine-window";
const char* const turnOption = "--turn";

int numberOf(const std::string& text) {
    int number = -1;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

} // namespace

QStringList engineWindowArguments(const StartedRun& run, const StartTurn& turn) {
    QStringList arguments{windowOption};
    if (turn.isHeld()) arguments << turnOption << QString::number(turn.descriptor());
    arguments << QString::number(run.runType);
    for (const std::string& file : run.dataFiles)
        arguments << QFile::decodeName(file.c_str());
    return arguments;
}

bool isEngineWindowCall(const std::vector<std::string>& arguments) {
    return !arguments.empty() && arguments.front() == windowOption;
}

EngineWindowCall takeEngineWindowCall(const std::vector<std::string>& arguments) {
    EngineWindowCall call;
    std::size_t next = 1;
    if (next + 1 < arguments.size() && arguments[next] == turnOption) {
        call.turn = StartTurn::handedOn(numberOf(arguments[next + 1]));
        next += 2;
    }
    if (next < arguments.size()) call.run.runType = numberOf(arguments[next++]);
    for (; next < arguments.size(); ++next)
        call.run.dataFiles.push_back(arguments[next]);
    return call;
}

} // namespace korvel
