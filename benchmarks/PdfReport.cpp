// Pages of a report to a PDF file against Qt's own way, text by text and line by line: time, size, memory.
#include "basic/ModelName.h"
#include "platform/DiskFiles.h"
#include "toolkit/PdfPaper.h"
#include "toolkit/StartQt.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <random>
#include <sys/resource.h>

namespace {

constexpr int pages = 200, rows = 68, columns = 11, rounds = 7;
constexpr double lineHeight = 0.145, columnWidth = 0.66, left = 0.3, top = 0.4;

std::string number(std::mt19937& random, std::lognormal_distribution<double>& amount) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", amount(random));
    return text;
}

std::vector<Drawing> report(const TextMetrics& metrics) {
    std::mt19937 random(1);
    std::lognormal_distribution<double> amount(2.0, 2.0);
    std::vector<Drawing> drawings(pages);
    const Pen rule{{0, 0, 0}, 2, Dash::solid};
    for (Drawing& page : drawings) {
        page = {printableShortSide, printableLongSide, 1, {}};
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column) {
                const std::string text =
                    column == 0 ? "Outfall " + std::to_string(row) : number(random, amount);
                const double y = top + row * lineHeight, right = left + (column + 1) * columnWidth;
                const double width = metrics.measure(text, {}).width / 1440;
                page.commands.emplace_back(DrawnLine{{right, y}, {right, y + lineHeight}, rule});
                page.commands.emplace_back(
                    DrawnText{{right - 0.05 - width, y}, width, lineHeight, text, {}, {0, 0, 0}});
            }
    }
    return drawings;
}

void paintOneByOne(const Drawing& page, QPainter& painter) {
    constexpr double dots = 300;
    for (const DrawnCommand& command : page.commands) {
        if (const auto* line = std::get_if<DrawnLine>(&command))
            painter.drawLine(QPointF(line->from.x, line->from.y) * dots,
                             QPointF(line->to.x, line->to.y) * dots);
        else if (const auto* text = std::get_if<DrawnText>(&command))
            painter.drawText(QPointF(text->corner.x, text->corner.y + 0.1) * dots,
                             QString::fromStdString(text->text));
    }
}

void writeOneByOne(const std::vector<Drawing>& drawings, const std::string& path) {
    QPdfWriter writer(QString::fromStdString(path));
    writer.setResolution(300);
    writer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()});
    QPainter painter(&writer);
    painter.setFont(qtFont({}));
    painter.setPen(QPen(Qt::black, 2));
    for (std::size_t k = 0; k < drawings.size(); ++k) {
        if (k > 0) writer.newPage();
        paintOneByOne(drawings[k], painter);
    }
}

void writeReport(const std::vector<Drawing>& drawings, const std::string& path) {
    DiskFiles files;
    PdfFilePaper paper(files, modelNameOfHostPath(path));
    const auto job = paper.begin({"Report", Orientation::portrait, ""});
    for (const Drawing& page : drawings)
        job->page(page);
    job->finish();
}

double seconds(auto&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    std::ranges::nth_element(values, values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2));
    return values[values.size() / 2];
}

double megabytesAtPeak() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

} // namespace

int main(int argc, char** argv) {
    settleForNoDisplay();
    const QGuiApplication application(argc, argv);
    const auto folder = std::filesystem::temp_directory_path();
    const std::string ours = folder / "korvel-bench.pdf", theirs = folder / "korvel-bench-one-by-one.pdf";
    const std::vector<Drawing> drawings = report(QtTextMetrics());
    writeReport({drawings.front()}, ours); // warms the fonts
    const double before = megabytesAtPeak();
    writeReport(drawings, ours);
    const double grown = megabytesAtPeak() - before;
    std::vector<double> times, otherTimes, ratios;
    for (int round = 0; round < rounds; ++round) {
        otherTimes.push_back(seconds([&] { writeOneByOne(drawings, theirs); }));
        times.push_back(seconds([&] { writeReport(drawings, ours); }));
        ratios.push_back(times.back() / otherTimes.back());
    }
    const auto size = [](const std::string& path) {
        return static_cast<double>(std::filesystem::file_size(path));
    };
    std::printf(
        "PDF report of %d pages: %.2f x Qt text by text (%.0f ms to %.0f ms), %.2f x its size (%.1f MB), "
        "%.1f MB of memory for all pages\n",
        pages, median(ratios), median(times) * 1e3, median(otherTimes) * 1e3, size(ours) / size(theirs),
        size(ours) / 1e6, grown);
    std::filesystem::remove(ours);
    std::filesystem::remove(theirs);
}
