#include "commands/StudyCall.h"

#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "commands/ProgressLine.h"
#include "many/FinishedRuns.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <utility>

namespace korvel {

namespace {

std::vector<std::string> filesOfPlan(const std::string& plan) {
    const FinishedRuns finished = finishedRuns(plan);
    if (!finished.problems.empty())
        throw RefusedCall{{finished.problems.front(), "Plan", Icon::exclamation, Buttons::ok}};
    std::vector<std::string> files;
    if (finished.runs.empty())
        throw RefusedCall{{plan + " has no finished run.", "Plan", Icon::exclamation, Buttons::ok}};
    for (const FinishedRun& run : finished.runs)
        files.push_back(modelNameOfTyped(run.results));
    return files;
}

void expectCount(std::size_t files, std::size_t least, std::size_t most) {
    if (files == 0) throw UsageError("no results file given");
    if (files < least) throw UsageError("one results file given: there is nothing to hold against it");
    if (files > most)
        throw UsageError(std::to_string(files) + " results files given, " + std::to_string(most) +
                         (most == 1 ? " is taken" : " are taken at most"));
}

// Whether both names lead to one file, by links too.
bool isSameFile(const std::string& a, const std::string& b) {
    std::error_code isMissing;
    return a == b || std::filesystem::equivalent(hostPathOf(a), hostPathOf(b), isMissing);
}

const TableFormat* formatGiven(const std::string& name, TextAllowed text) {
    const TableFormat* format = formatNamed(name);
    if (!format || (format->forPeople && text == TextAllowed::no))
        throw UsageError("'" + name + "' is no format of this command");
    return format;
}

const TableFormat* formatByFile(const std::string& file, TextAllowed text) {
    const TableFormat* format = file.empty() ? nullptr : formatOfExtension(file);
    if (format && (!format->forPeople || text == TextAllowed::yes)) return format;
    return formatNamed(text == TextAllowed::yes ? "text" : "csv");
}

TextLook lookOf(const CommandCall& call) {
    return {call.console.coloursAreShown};
}

std::string withFileLineEnds(std::string_view text) {
    std::string lines;
    for (const char c : text)
        lines += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return lines;
}

void writeToFile(CommandCall& call, const OutputChoice& choice, const TableContent& content) {
    const auto file = call.platform.files.create(choice.file);
    OutputBytes bytes([&](std::string_view text) {
        choice.format->forPeople ? file->write(withFileLineEnds(text)) : file->write(text);
    });
    choice.format->write(content, {}, bytes);
    bytes.flush();
    file->commit();
}

} // namespace

bool namesPlan(const CommandLine& line) {
    return line.operands().size() == 1 && isPlan(line.operands().front());
}

std::vector<std::string> studyFiles(const CommandLine& line, const FileCount& count) {
    const std::vector<std::string>& operands = line.operands();
    std::vector<std::string> files;
    if (namesPlan(line))
        files = filesOfPlan(operands.front());
    else
        for (const std::string& operand : operands)
            files.push_back(modelNameOfTyped(operand));
    expectCount(files.size(), count.least, namesPlan(line) ? count.mostOfPlan : count.most);
    return files;
}

Study takeStudy(CommandCall& call, const std::vector<std::string>& files) {
    ProgressLine line(call.errors, "Reading");
    RunProgress progress;
    if (call.console.errorsAreShown) progress = [&](double share) { line.show(share); };
    LoadedStudy loaded = loadStudy(call.platform.files, files, progress);
    if (loaded.refusal) throw RefusedCall{*loaded.refusal};
    return std::move(loaded.study);
}

Network riverNetwork(const StudyRun& run) {
    Network network = networkOf(*run.file);
    if (const auto circles = circlesIn(network, *run.file)) throw refusedRun(run, "Network", *circles);
    return network;
}

RefusedCall refusedRun(const StudyRun& run, const std::string& title, const std::string& words) {
    return {{run.name + ": " + words, title, Icon::exclamation, Buttons::ok}};
}

OutputChoice outputChoice(const CommandLine& line, const std::vector<std::string>& files, TextAllowed text) {
    OutputChoice choice;
    const std::string typed = line.value("--output").value_or("");
    const auto format = line.value("--format");
    choice.format = format ? formatGiven(*format, text) : formatByFile(typed, text);
    choice.file = modelNameOfTyped(typed);
    const auto isOutput = [&](const std::string& file) { return isSameFile(file, choice.file); };
    if (!choice.file.empty() && std::ranges::any_of(files, isOutput))
        throw RefusedCall{
            {"The output would replace the input.", "File name", Icon::exclamation, Buttons::ok}};
    return choice;
}

void deliver(CommandCall& call, const OutputChoice& choice, const TableContent& content) {
    if (!choice.file.empty()) return writeToFile(call, choice, content);
    writeOut(call, [&](OutputBytes& out) { choice.format->write(content, lookOf(call), out); });
}

void showText(CommandCall& call, const std::function<void(TextPage&)>& text) {
    TextPage page(lookOf(call));
    text(page);
    call.out << page.text();
}

void writeOut(CommandCall& call, const std::function<void(OutputBytes&)>& write) {
    OutputBytes bytes([&](std::string_view text) {
        call.out.write(text.data(), static_cast<std::streamsize>(text.size()));
    });
    write(bytes);
    bytes.flush();
}

std::string chosenWord(const CommandLine& line, const std::string& option,
                       const std::vector<std::string>& words) {
    const std::string word = line.value(option).value_or(words.front());
    if (std::ranges::find(words, word) != words.end()) return word;
    std::string all;
    for (const std::string& each : words)
        all += (all.empty() ? "" : ", ") + each;
    throw UsageError("'" + word + "' is none of " + all);
}

} // namespace korvel
