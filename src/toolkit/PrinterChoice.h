// What Printer Setup chose; it holds while the program runs.
#pragma once

#include <QPrinter>

#include <memory>

class PrinterChoice {
  public:
    // The printer that the dialog works on; made on first use, as asking the print system takes a while.
    QPrinter& printer();
    bool wasChosen() const { return m_chosen; }
    void setChosen() { m_chosen = true; }

  private:
    std::unique_ptr<QPrinter> m_printer;
    bool m_chosen = false;
};
