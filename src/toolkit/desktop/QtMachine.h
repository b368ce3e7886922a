// The desktop, the day and the application folder of the running program.
#pragma once

#include "platform/Machine.h"

namespace korvel {

class QtMachine : public Machine {
  public:
    // `applicationFolder`: a host path.
    explicit QtMachine(const std::string& applicationFolder);

    std::string applicationFolder() override { return m_applicationFolder; }
    WorkArea workArea() override;
    Date today() override;
    void startEngine(const std::string& program) override;
    void startEngineAlone(const std::string& program) override;
    int runEngine(const std::string& program, const std::function<void(std::string_view)>& onOutput) override;

  private:
    std::string m_applicationFolder;
};

} // namespace korvel
