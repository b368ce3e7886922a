// A line on a form that says what was written where, with links that open the file and show its folder.
#pragma once

#include "platform/Machine.h"
#include "toolkit/forms/Handlers.h"

#include <QLabel>

#include <string>

namespace korvel {

class DoneLine {
  public:
    DoneLine(QLabel& label, Machine& machine, Handlers& handlers);

    // `what` in words: "The report"; `file` is a model name, "" where a printer took it.
    void tell(const std::string& what, const std::string& file);
    void clear();

  private:
    void follow(const QString& link);

    QLabel& m_label;
    Machine& m_machine;
    std::string m_file;
};

} // namespace korvel
