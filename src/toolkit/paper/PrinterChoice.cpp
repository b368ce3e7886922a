#include "toolkit/paper/PrinterChoice.h"

#include <QPrintEngine>
#include <QStringList>

namespace korvel {

namespace {

// Where the dialog leaves its settings for the print system: name, value, name, value.
constexpr auto queueOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

PrintOptions furtherOptions(const QPrinter& printer) {
    const QStringList words = printer.printEngine()->property(queueOptions).toStringList();
    PrintOptions options;
    for (qsizetype i = 0; i + 1 < words.size(); i += 2)
        options.emplace_back(words[i].toStdString(), words[i + 1].toStdString());
    return options;
}

void setFurtherOptions(QPrinter& printer, const PrintOptions& options) {
    QStringList words;
    for (const auto& [name, value] : options)
        words << QString::fromStdString(name) << QString::fromStdString(value);
    printer.printEngine()->setProperty(queueOptions, words);
}

QPageRanges chosenPages(const QPrinter& printer) {
    return printer.printRange() == QPrinter::PageRange ? printer.pageRanges() : QPageRanges();
}

const char* sidesKeyword(QPrinter::DuplexMode sides) {
    switch (sides) {
    case QPrinter::DuplexNone: return "one-sided";
    case QPrinter::DuplexLongSide: return "two-sided-long-edge";
    case QPrinter::DuplexShortSide: return "two-sided-short-edge";
    case QPrinter::DuplexAuto: break; // as the queue has it
    }
    return nullptr;
}

} // namespace

PrintOptions ChosenPrinter::options() const {
    PrintOptions options = further;
    options.emplace_back("copies", std::to_string(copies));
    if (copies > 1)
        options.emplace_back("multiple-document-handling", collated ? "separate-documents-collated-copies"
                                                                    : "separate-documents-uncollated-copies");
    if (const char* keyword = sidesKeyword(sides)) options.emplace_back("sides", keyword);
    if (!pages.isEmpty()) options.emplace_back("page-ranges", pages.toString().toStdString());
    return options;
}

void PrinterChoice::showOn(QPrinter& printer) const {
    if (!m_chosen) return;
    if (!m_chosen->queue.isEmpty()) printer.setPrinterName(m_chosen->queue);
    if (!m_chosen->file.isEmpty()) printer.setOutputFileName(m_chosen->file);
    printer.setCopyCount(m_chosen->copies);
    printer.setCollateCopies(m_chosen->collated);
    printer.setDuplex(m_chosen->sides);
    printer.setPageRanges(m_chosen->pages);
    printer.setPrintRange(m_chosen->pages.isEmpty() ? QPrinter::AllPages : QPrinter::PageRange);
    if (m_chosen->file.isEmpty()) setFurtherOptions(printer, m_chosen->further);
}

void PrinterChoice::takeFrom(const QPrinter& printer) {
    const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
    choose({toFile ? QString() : printer.printerName(), toFile ? printer.outputFileName() : QString(),
            printer.copyCount(), printer.collateCopies(), printer.duplex(), chosenPages(printer),
            toFile ? PrintOptions() : furtherOptions(printer)});
}

} // namespace korvel
