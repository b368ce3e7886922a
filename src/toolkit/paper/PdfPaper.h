// Paper, by way of PDF documents.
#pragma once

#include "drawing/paint/QtTextMetrics.h"
#include "platform/Files.h"
#include "platform/Paper.h"
#include "toolkit/desktop/DrawingSession.h"
#include "toolkit/paper/PrinterChoice.h"

#include <memory>
#include <string>
#include <utility>

namespace korvel {

// To the printer or the file that Printer Setup chose; before any choice to the system's default printer, and
// where it has none to the request's own file.
class QtPaper : public Paper {
  public:
    QtPaper(const PrinterChoice& printer, Files& files) : m_printer(printer), m_files(files) {}
    const TextMetrics& metrics() const override { return m_metrics; }
    std::unique_ptr<PrintJob> begin(const PrintRequest& request) override;

  private:
    const PrinterChoice& m_printer;
    Files& m_files;
    QtTextMetrics m_metrics;
};

// Every job to one PDF file (a model name), whatever the system has. No display and no print system is
// needed.
class PdfFilePaper : public Paper {
  public:
    PdfFilePaper(Files& files, std::string file) : m_files(files), m_file(std::move(file)) {}
    const TextMetrics& metrics() const override { return m_metrics; }
    std::unique_ptr<PrintJob> begin(const PrintRequest& request) override;

  private:
    Files& m_files;
    std::string m_file;
    QtTextMetrics m_metrics;
};

// For commands: each job to the file that its request names. Qt's fonts are made ready on first use.
class CommandPaper : public Paper {
  public:
    explicit CommandPaper(Files& files) : m_files(files) {}
    const TextMetrics& metrics() const override;
    std::unique_ptr<PrintJob> begin(const PrintRequest& request) override;

  private:
    Files& m_files;
    mutable std::unique_ptr<DrawingSession> m_session; // outlives the fonts of the metrics
    QtTextMetrics m_metrics;
};

} // namespace korvel
