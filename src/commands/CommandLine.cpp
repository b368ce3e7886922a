#include "commands/CommandLine.h"

#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "platform/OwnInput.h"

#include <algorithm>
#include <filesystem>

namespace korvel {

namespace {

const CommandOption& knownOption(std::initializer_list<CommandOption> options, const std::string& name) {
    const auto found = std::ranges::find(options, name, &CommandOption::name);
    if (found == options.end()) throw UsageError("unknown option '" + name + "'");
    return *found;
}

} // namespace

CommandLine::CommandLine(const std::vector<std::string>& arguments,
                         std::initializer_list<CommandOption> options) {
    bool optionsEnded = false;
    for (std::size_t k = 0; k < arguments.size(); ++k) {
        const std::string& argument = arguments[k];
        if (optionsEnded || argument.size() < 2 || argument[0] != '-') {
            m_operands.push_back(argument);
            continue;
        }
        optionsEnded = argument == "--";
        if (optionsEnded) continue;
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const bool hasValue = knownOption(options, name).kind == CommandOption::Kind::withValue;
        if (!hasValue && equals != std::string::npos)
            throw UsageError("option '" + name + "' takes no value");
        if (hasValue && equals == std::string::npos && ++k == arguments.size())
            throw UsageError("option '" + name + "' needs a value");
        const std::string value = equals != std::string::npos ? argument.substr(equals + 1) : arguments[k];
        m_given.push_back({name, hasValue ? value : ""});
    }
}

const std::string& CommandLine::onlyOperand(const std::string& what) const {
    if (m_operands.empty()) throw UsageError("no " + what + " given");
    if (m_operands.size() > 1) throw UsageError("more than one " + what + " given: '" + m_operands[1] + "'");
    return m_operands.front();
}

bool CommandLine::has(std::string_view name) const {
    return std::ranges::find(m_given, name, &GivenOption::name) != m_given.end();
}

std::optional<std::string> CommandLine::value(std::string_view name) const {
    std::optional<std::string> value;
    for (const GivenOption& option : m_given) {
        if (option.name == name) value = option.value;
    }
    return value;
}

std::string modelNameOfTyped(const std::string& file, NameUse use) {
    if (file.empty()) return "";
    std::error_code withoutFolder; // the current one is gone
    const std::string path = std::filesystem::absolute(file, withoutFolder).lexically_normal().string();
    if (withoutFolder) throw RunTimeError(errors::pathNotFound);
    if (const auto refusal = whyNotAModelName(path, use)) throw RefusedName(*refusal);
    return modelNameOfHostPath(path);
}

void refuseOwnInput(Files& files, const std::string& output, const std::vector<std::string>& inputs) {
    if (replacesInput(files, output, inputs)) throw RefusedName(outputWouldReplaceInput().text);
}

} // namespace korvel
