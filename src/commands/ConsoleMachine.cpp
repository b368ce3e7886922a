#include "commands/ConsoleMachine.h"

#include <ostream>

namespace korvel {

void ConsoleMachine::startEngine(const std::string& program) {
    if (m_output == nullptr) {
        m_machine.startEngineAlone(program);
        m_engineStatus = 0;
    } else {
        m_engineStatus = m_machine.runEngine(
            program, [this](std::string_view bytes) { *m_output << bytes << std::flush; });
    }
}

} // namespace korvel
