#include "commands/ConsoleMachine.h"

#include <ostream>

namespace korvel {

void ConsoleMachine::startEngine(const std::string& program, const StartedRun&, StartTurn turn) {
    if (m_output == nullptr) {
        m_machine.startEngineAlone(program, std::move(turn));
        m_engineStatus = 0;
        return;
    }
    const auto handOn = [this](std::string_view bytes) { *m_output << bytes << std::flush; };
    m_engineStatus = m_machine.runEngine(program, handOn, std::move(turn));
}

} // namespace korvel
