// A line on a form that says what was written where, with links that open the file and show its folder.
#pragma once

#include "platform/Machine.h"
#include "toolkit/forms/Handlers.h"

#include <QLabel>

#include <string>

namespace korvel {

class DoneLine {
  public:
    // `parted`: what stands between the sentence and its links, HTML.
    DoneLine(QLabel& label, Machine& machine, Handlers& handlers, const char* parted = "<br>");

    // `what` in words: "The report"; `file` is a model name, "" where a printer took it.
    void tell(const std::string& what, const std::string& file);
    // A sentence without links.
    void say(const std::string& sentence);
    void clear();

  private:
    void follow(const QString& link);

    QLabel& m_label;
    Machine& m_machine;
    const char* m_parted;
    std::string m_file;
};

} // namespace korvel
