// What Printer Setup chose; it holds while the program runs.
#pragma once

#include <QPageRanges>
#include <QPrinter>
#include <QString>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvel {

using PrintOptions = std::vector<std::pair<std::string, std::string>>;

// A queue of the system, or a PDF file where `file` is not empty.
struct ChosenPrinter {
    QString queue;
    QString file;
    int copies = 1;
    bool collated = true;
    QPrinter::DuplexMode sides = QPrinter::DuplexNone;
    QPageRanges pages;    // empty: all
    PrintOptions further; // what else the dialog set for the queue, in the print system's words

    // In the print system's words; what was chosen by name stands before what stands among the further ones.
    PrintOptions options() const;
};

class PrinterChoice {
  public:
    const std::optional<ChosenPrinter>& chosen() const { return m_chosen; }
    void choose(ChosenPrinter printer) { m_chosen = std::move(printer); }
    // Between the choice and the printer that a dialog works on.
    void showOn(QPrinter& printer) const;
    void takeFrom(const QPrinter& printer);

  private:
    std::optional<ChosenPrinter> m_chosen;
};

} // namespace korvel
