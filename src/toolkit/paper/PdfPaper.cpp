#include "toolkit/paper/PdfPaper.h"

#include "basic/ModelName.h"
#include "drawing/paint/Shown.h"
#include "toolkit/paper/PdfJob.h"
#include "toolkit/paper/PdfOutline.h"

#include <QFile>

namespace korvel {

namespace {

PdfJobSettings settingsOf(const PrintRequest& request, const QtTextMetrics& metrics) {
    return {request.title, request.orientation, {}, "", "", request.outline, metrics.glyphs()};
}

std::unique_ptr<PrintJob> jobToFile(PdfJobSettings settings, const std::string& file, Files& files) {
    settings.file = file;
    std::unique_ptr<PdfTarget> target = std::make_unique<FileTarget>(files, file);
    if (settings.outline) {
        const SheetPlace place = sheetPlace(settings.orientation);
        target = std::make_unique<OutlinedTarget>(std::move(target), settings.outline, place);
    }
    return std::make_unique<PdfJob>(std::move(settings), std::move(target));
}

std::unique_ptr<PrintJob> jobToFallbackFile(const PrintRequest& request, const QtTextMetrics& metrics,
                                            Files& files) {
    PdfJobSettings settings = settingsOf(request, metrics);
    settings.toTell = request.fallbackFile;
    return jobToFile(std::move(settings), request.fallbackFile, files);
}

std::unique_ptr<PrintJob> jobToChosenFile(const PrintRequest& request, const ChosenPrinter& chosen,
                                          const QtTextMetrics& metrics, Files& files) {
    PdfJobSettings settings = settingsOf(request, metrics);
    settings.pages = chosen.pages;
    const std::string name = modelNameOfHostPath(QFile::encodeName(chosen.file).toStdString());
    return jobToFile(std::move(settings), name, files);
}

// The sheet is A4 and the page stands on it as it shall be printed.
PrintOptions documentOptions() {
    return {{"document-format", "application/pdf"}, {"media", "iso_a4_210x297mm"}, {"print-scaling", "none"}};
}

std::unique_ptr<PrintJob> jobToQueue(const PrintRequest& request, const std::string& queue,
                                     const PrintOptions& chosenOptions, const QtTextMetrics& metrics) {
    QueueJob job{queue, shownUtf8(request.title), documentOptions()};
    job.options.insert(job.options.end(), chosenOptions.begin(), chosenOptions.end());
    return std::make_unique<PdfJob>(settingsOf(request, metrics),
                                    std::make_unique<QueueTarget>(std::move(job)));
}

} // namespace

std::unique_ptr<PrintJob> QtPaper::begin(const PrintRequest& request) {
    if (const auto& chosen = m_printer.chosen()) {
        if (!chosen->file.isEmpty()) return jobToChosenFile(request, *chosen, m_metrics, m_files);
        return jobToQueue(request, chosen->queue.toStdString(), chosen->options(), m_metrics);
    }
    if (const auto queue = defaultQueue()) return jobToQueue(request, *queue, {}, m_metrics);
    return jobToFallbackFile(request, m_metrics, m_files);
}

std::unique_ptr<PrintJob> PdfFilePaper::begin(const PrintRequest& request) {
    return jobToFile(settingsOf(request, m_metrics), m_file, m_files);
}

const TextMetrics& CommandPaper::metrics() const {
    if (!m_session) m_session = std::make_unique<DrawingSession>();
    return m_metrics;
}

std::unique_ptr<PrintJob> CommandPaper::begin(const PrintRequest& request) {
    if (!m_session) m_session = std::make_unique<DrawingSession>();
    return jobToFile(settingsOf(request, m_metrics), request.fallbackFile, m_files);
}

} // namespace korvel
