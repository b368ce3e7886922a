#include "commands/RunsInTurn.h"

#include "commands/CommandLine.h"
#include "study/RunNames.h"

namespace korvel {

RunsInTurn::RunsInTurn(CommandCall& call, std::vector<std::string> files)
    : m_call(call), m_files(std::move(files)), m_names(runNames(m_files)), m_base(read(0)) {}

StudyRun RunsInTurn::run(std::size_t k) const {
    if (k == 0) return m_base;
    StudyRun later = read(k);
    if (const auto difference = differenceOf(m_base, later))
        throw RefusedCall{{m_base.name + " and " + later.name + " differ in " + *difference, "Study",
                           Icon::exclamation, Buttons::ok}};
    return later;
}

RunSequence RunsInTurn::sequence() const {
    return {m_files.size(), [this](std::size_t k) { return run(k); }};
}

StudyRun RunsInTurn::read(std::size_t k) const {
    const ReadRun read = readRun(m_call.platform.files, m_files.at(k));
    if (read.failure) {
        Message message = *read.failure;
        message.text = m_names[k] + ": " + message.text;
        throw RefusedCall{message};
    }
    return {m_names[k], read.run};
}

} // namespace korvel
