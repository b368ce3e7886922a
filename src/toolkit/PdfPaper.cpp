#include "toolkit/PdfPaper.h"

#include "basic/ModelName.h"
#include "toolkit/PdfJob.h"
#include "toolkit/Shown.h"

#include <QFile>

namespace {

PdfJobSettings settingsOf(const PrintRequest& request) {
    return {request.title, request.orientation, {}, ""};
}

std::unique_ptr<PrintJob> jobToFile(const PrintRequest& request, const std::string& file, Files& files) {
    PdfJobSettings settings = settingsOf(request);
    settings.toTell = file;
    return std::make_unique<PdfJob>(std::move(settings), std::make_unique<FileTarget>(files, file));
}

std::unique_ptr<PrintJob> jobToChosenFile(const PrintRequest& request, const ChosenPrinter& chosen,
                                          Files& files) {
    PdfJobSettings settings = settingsOf(request);
    settings.pages = chosen.pages;
    const std::string name = modelNameOfHostPath(QFile::encodeName(chosen.file).toStdString());
    return std::make_unique<PdfJob>(std::move(settings), std::make_unique<FileTarget>(files, name));
}

// The sheet is A4 and the page stands on it as it shall be printed.
PrintOptions documentOptions() {
    return {{"document-format", "application/pdf"}, {"media", "iso_a4_210x297mm"}, {"print-scaling", "none"}};
}

std::unique_ptr<PrintJob> jobToQueue(const PrintRequest& request, const std::string& queue,
                                     const PrintOptions& chosenOptions) {
    QueueJob job{queue, shownUtf8(request.title), documentOptions()};
    job.options.insert(job.options.end(), chosenOptions.begin(), chosenOptions.end());
    return std::make_unique<PdfJob>(settingsOf(request), std::make_unique<QueueTarget>(std::move(job)));
}

} // namespace

std::unique_ptr<PrintJob> QtPaper::begin(const PrintRequest& request) {
    if (const auto& chosen = m_printer.chosen()) {
        if (!chosen->file.isEmpty()) return jobToChosenFile(request, *chosen, m_files);
        return jobToQueue(request, chosen->queue.toStdString(), chosen->options());
    }
    if (const auto queue = defaultQueue()) return jobToQueue(request, *queue, {});
    return jobToFile(request, request.fallbackFile, m_files);
}

std::unique_ptr<PrintJob> PdfFilePaper::begin(const PrintRequest& request) {
    return jobToFile(request, m_file, m_files);
}
