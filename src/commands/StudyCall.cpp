#include "commands/StudyCall.h"

#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "commands/ProgressLine.h"
#include "commands/TerminalText.h"
#include "many/FinishedRuns.h"
#include "many/PlanPlaces.h"
#include "platform/OwnInput.h"
#include "toolkit/process/StopSignals.h"

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

const TableFormat* formatGiven(const std::string& name, TableUse use) {
    const TableFormat* format = formatNamed(name);
    if (!format || !isFormatFor(use, *format))
        throw UsageError("'" + name + "' is no format of this command");
    return format;
}

// By a text file's name a command without words for people writes what it always writes.
const TableFormat* formatByFile(const std::string& file, TableUse use) {
    const TableFormat* format = file.empty() ? nullptr : formatOfExtension(file);
    if (format && isFormatFor(use, *format)) return format;
    if (format && needsFile(*format)) return formatGiven(std::string(format->name), use);
    return formatNamed(use == TableUse::analysis ? "text" : "csv");
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

void writeToFile(CommandCall& call, const OutputChoice& choice, const TableContent& content,
                 const Writing& watched) {
    if (choice.format->kind == TableFormatKind::database)
        return writeDatabase(*content.database, watched, call.platform.files, choice.file);
    const auto file = call.platform.files.create(choice.file);
    const bool isText = choice.format->kind == TableFormatKind::forPeople;
    OutputBytes bytes(
        [&](std::string_view text) { isText ? file->write(withFileLineEnds(text)) : file->write(text); });
    choice.format->write(content, watched, bytes);
    bytes.flush();
    file->commit();
}

// What is long in the making can be stopped by Ctrl+C, which then leaves everything as it was.
void writeOrStop(CommandCall& call, const OutputChoice& choice, const TableContent& content) {
    StopSignals signals;
    ProgressLine line(call.errors, "Writing");
    const Writing watched{{}, [&](double share) {
                              if (call.console.errorsAreShown) line.show(share);
                              return signals.next() == StopWish::none;
                          }};
    const std::string title(choice.format->title);
    try {
        writeToFile(call, choice, content, watched);
    } catch (const WritingStopped&) {
        throw RefusedCall{{"Stopped; nothing was written.", title, Icon::information, Buttons::ok}};
    } catch (const TableRefused& refused) {
        throw RefusedCall{{refused.what(), title, Icon::exclamation, Buttons::ok}};
    }
}

void writeTo(std::ostream& out, const std::function<void(OutputBytes&)>& write) {
    OutputBytes bytes(
        [&](std::string_view text) { out.write(text.data(), static_cast<std::streamsize>(text.size())); });
    write(bytes);
    bytes.flush();
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

OutputChoice outputChoice(Files& service, const CommandLine& line, const std::vector<std::string>& files,
                          TableUse use) {
    OutputChoice choice;
    const std::string typed = line.value("--output").value_or("");
    const auto format = line.value("--format");
    choice.format = format ? formatGiven(*format, use) : formatByFile(typed, use);
    if (typed.empty() && needsFile(*choice.format))
        throw UsageError("--format " + std::string(choice.format->name) + " needs --output");
    choice.file = modelNameOfTyped(typed);
    if (replacesInput(service, choice.file, files)) throw RefusedCall{outputWouldReplaceInput()};
    return choice;
}

std::string outputHelp(std::size_t indent, TableUse use) {
    const auto line = [&](const std::string& option, const std::string& words) {
        return "  " + option + std::string(indent - 2 - option.size(), ' ') + words + '\n';
    };
    const std::string otherwise = use == TableUse::analysis ? "" : ", else csv";
    return line("--format FORMAT",
                formatNames(use) + "; by the output's extension where not given" + otherwise) +
           line("--output FILE", "the file to write; the standard output where not given");
}

Taken takenFrom(const std::string& title, const std::vector<std::string>& runs) {
    Taken taken{title, {}};
    taken.facts.push_back({runs.size() == 1 ? "Run" : "Runs", joined(runs)});
    return taken;
}

std::vector<std::string> namesOf(const Study& study) {
    std::vector<std::string> names;
    for (const StudyRun& run : study.runs())
        names.push_back(run.name);
    return names;
}

void deliver(CommandCall& call, const OutputChoice& choice, const TableContent& content) {
    if (needsFile(*choice.format)) return writeOrStop(call, choice, content);
    if (!choice.file.empty()) return writeToFile(call, choice, content, {});
    const auto write = [&](OutputBytes& out) { choice.format->write(content, {lookOf(call), {}}, out); };
    choice.format->kind == TableFormatKind::forPeople ? writeTo(call.out, write) : writeOut(call, write);
}

void showText(CommandCall& call, const std::function<void(TextPage&)>& text) {
    TextPage page(lookOf(call));
    text(page);
    call.out << page.text();
}

// Rows for programs hold no colours of ours: on a terminal none of their control characters passes.
void writeOut(CommandCall& call, const std::function<void(OutputBytes&)>& write) {
    if (!call.console.outIsTerminal) return writeTo(call.out, write);
    TerminalText shown(*call.out.rdbuf());
    std::ostream terminal(&shown);
    writeTo(terminal, write);
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
